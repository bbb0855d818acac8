package tidelab.waves;

import java.lang.reflect.Executable;
import java.lang.reflect.Parameter;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Random;
import java.util.concurrent.Executor;
import java.util.function.Consumer;

/** Arguments for a method or constructor of the API, by their types. */
final class RandomArguments {
    private final Random random;
    private final RandomValues values;
    private final RandomPool pool;
    private final Executor executor;
    private final Runnable call;

    /** {@code call} makes another random call, for consumers that use the API. */
    RandomArguments(Random random, RandomPool pool, Executor executor, Runnable call) {
        this.random = random;
        this.pool = pool;
        this.executor = executor;
        this.call = call;
        values = new RandomValues(random);
    }

    Object[] of(Executable method, Object target) {
        Parameter[] parameters = method.getParameters();
        Object[] arguments = new Object[parameters.length];
        for (int i = 0; i < arguments.length; ++i) {
            boolean isNull = !parameters[i].getType().isPrimitive() && random.nextInt(60) == 0;
            arguments[i] = isNull ? null : one(parameters[i], method, target);
        }
        // Without this, units rarely fit.
        if (method.getName().equals("get") && target instanceof Settings settings
                && settings.has(String.valueOf(arguments[0])) && random.nextBoolean()
                && RandomValues.isQuantity(settings, (String) arguments[0])) {
            arguments[1] = settings.quantity((String) arguments[0]).units();
        }
        return arguments;
    }

    private Object one(Parameter parameter, Executable method, Object target) {
        Class<?> type = parameter.getType();
        if (type == int.class)
            return values.integer();
        if (type == short.class)
            return (short) values.integer();
        if (type == double.class)
            return values.number();
        if (type == boolean.class)
            return random.nextBoolean();
        if (type == String.class)
            return string(method, target);
        if (type == Path.class) {
            boolean loads = method.getName().equals("load") && random.nextInt(3) > 0;
            return loads ? Kelpbox.location() : values.path();
        }
        if (type == double[].class)
            return values.samples();
        if (type == Settings.class)
            return values.settings(kind(method, target));
        if (type == Object[].class)
            return pairs(values.settings(kind(method, target)));
        if (type == Consumer.class)
            return consumer();
        if (type == Executor.class)
            return random.nextInt(4) == 0 ? (Executor) Runnable::run : executor;
        if (type == List.class)
            return list(method, target);
        if (type == Class.class)
            return values.one(List.of(Choice.class, WaveMerge.class, RanGen.class));
        if (type.isEnum())
            return type.getEnumConstants()[random.nextInt(type.getEnumConstants().length)];
        if (type == Object.class)
            return object(method);
        return pool.any(type, random);
    }

    /** Which of the settings of RandomValues a method needs. */
    private static String kind(Executable method, Object target) {
        if (!method.getName().equals("set"))
            return method.getName().equals("addSeries") ? "probe" : method.getName();
        if (target instanceof Definition)
            return "definition";
        if (target instanceof Specification)
            return "specification";
        if (target instanceof Component component)
            return component.kind() == Component.Kind.SINGLE ? "single" : "none";
        return target instanceof Modifier ? "none" : "site";
    }

    private String string(Executable method, Object target) {
        if (target instanceof Settings settings && !settings.names().isEmpty()
                && random.nextInt(3) > 0) {
            Class<?> kind = method.getName().equals("choice") ? Choice.class
                    : method.getName().equals("flag")         ? Boolean.class
                                                              : Object.class;
            List<String> names = new ArrayList<>(settings.names());
            names.removeIf(name -> !kind.isInstance(settings.values().get(name)));
            return values.one(names.isEmpty() ? settings.names() : names);
        }
        String name = method.getName();
        if (name.equals("of") && random.nextBoolean())
            return method.getParameterCount() == 2 ? values.units() : "25 mm";
        if (name.equals("addSpectrum") && random.nextBoolean())
            return "0.3@Hz#0.0001@m2s#1.2@Hz";
        if (name.equals("addTimeExpression") && random.nextBoolean())
            return "0@s#0.1*sin(6*t)@m#5@s";
        if (name.equals("addTimeSeries") && random.nextBoolean())
            return "mm";
        if (name.equals("in") || name.equals("to"))
            return values.units();
        Object[] members = method.getDeclaringClass().getEnumConstants();
        if (members != null && random.nextInt(4) > 0)
            return ((Enum<?>) members[random.nextInt(members.length)]).name();
        return values.text();
    }

    private Object object(Executable method) {
        if (random.nextInt(4) == 0)
            return values.value();
        switch (method.getName()) {
            case "paddleMotion":
                return "20 Hz";
            case "createSet":
                return random.nextBoolean() ? "0 s" : "10 s";
            case "equals":
                return pool.any(Object.class, random);
            default:
                return values.value();
        }
    }

    private Object[] pairs(Settings settings) {
        List<Object> pairs = new ArrayList<>();
        settings.values().forEach((name, value) -> {
            pairs.add(name);
            pairs.add(value);
        });
        if (random.nextInt(30) == 0)
            pairs.add(values.text());
        if (random.nextInt(30) == 0)
            pairs.add(null);
        return pairs.toArray();
    }

    private List<?> list(Executable method, Object target) {
        Class<?> element = method.getName().equals("addFronts") ? Front.class : Series.class;
        List<Object> list = new ArrayList<>();
        for (int i = random.nextInt(6); i > 0; --i) {
            // Some are null, as long as there are none.
            list.add(element == Front.class && random.nextInt(3) > 0
                            ? new Front(0.5 + 0.1 * i, 0.01, 0, 1)
                            : pool.any(element, random));
        }
        if (random.nextBoolean())
            list.removeIf(object -> object instanceof Series one && one.analysis() != target);
        return list;
    }

    private Consumer<String> consumer() {
        switch (random.nextInt(4)) {
            case 0:
                return line -> {
                    throw new IllegalStateException(line);
                };
            case 1:
                return line -> call.run();
            default:
                return line -> {};
        }
    }
}
