package tidelab.waves;

import java.io.IOException;
import java.io.UncheckedIOException;
import java.lang.reflect.Constructor;
import java.lang.reflect.Executable;
import java.lang.reflect.InvocationTargetException;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.net.URISyntaxException;
import java.nio.file.FileSystem;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.Comparator;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;

/** The public methods and constructors of the package, found in the jar that is tested. */
final class RandomCalls {
    private RandomCalls() {}

    static final List<Executable> METHODS = methods();

    /** Those that end objects, which random calls make less often. */
    static boolean ends(Executable method) {
        return List.of("close", "clear", "remove").contains(method.getName());
    }

    static Object invoke(Executable method, Object target, Object[] arguments) throws Throwable {
        try {
            return method instanceof Constructor<?> constructor
                    ? constructor.newInstance(arguments)
                    : ((Method) method).invoke(target, arguments);
        } catch (InvocationTargetException thrown) {
            throw thrown.getCause();
        }
    }

    static String label(Executable method) {
        return method.getDeclaringClass().getSimpleName() + "."
                + (method instanceof Constructor ? "new" : method.getName())
                + Arrays.stream(method.getParameterTypes())
                          .map(Class::getSimpleName)
                          .collect(Collectors.joining(", ", "(", ")"));
    }

    private static List<Executable> methods() {
        List<Executable> methods = new ArrayList<>();
        for (Class<?> type : classes()) {
            for (Method method : type.getMethods()) {
                if (method.getDeclaringClass() == type && !method.isBridge())
                    methods.add(method);
            }
            if (!Modifier.isAbstract(type.getModifiers()))
                methods.addAll(Arrays.asList(type.getConstructors()));
        }
        // The order of reflection differs from JVM to JVM, and a seed must choose the same calls.
        methods.sort(Comparator.comparing(RandomCalls::label));
        return methods;
    }

    private static List<Class<?>> classes() {
        try {
            Path place = Path.of(
                    Experiment.class.getProtectionDomain().getCodeSource().getLocation().toURI());
            if (Files.isDirectory(place))
                return classes(place);
            try (FileSystem jar = FileSystems.newFileSystem(place)) {
                return classes(jar.getPath("/"));
            }
        } catch (IOException e) {
            throw new UncheckedIOException(e);
        } catch (URISyntaxException e) {
            throw new IllegalStateException(e);
        }
    }

    private static List<Class<?>> classes(Path root) throws IOException {
        try (Stream<Path> files = Files.list(root.resolve("tidelab").resolve("waves"))) {
            return files.map(file -> file.getFileName().toString())
                    .filter(name -> name.endsWith(".class") && !name.equals("package-info.class"))
                    .map(name -> load(name.substring(0, name.length() - ".class".length())))
                    .filter(type -> Modifier.isPublic(type.getModifiers()))
                    .filter(type -> !Throwable.class.isAssignableFrom(type))
                    .collect(Collectors.toList());
        }
    }

    private static Class<?> load(String name) {
        try {
            return Class.forName("tidelab.waves." + name);
        } catch (ClassNotFoundException e) {
            throw new IllegalStateException(e);
        }
    }
}
