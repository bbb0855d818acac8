package tidelab.waves;

import java.lang.reflect.Executable;
import java.lang.reflect.Modifier;
import java.util.Collection;
import java.util.Map;
import java.util.NoSuchElementException;
import java.util.Queue;
import java.util.Random;
import java.util.Set;
import java.util.concurrent.CancellationException;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.Executor;
import tidelab.waves.component.WaveSynthesisException;

/** One thread's random calls, on objects that it shares with other threads. */
final class RandomCaller {
    private static final Set<Class<?>> DOCUMENTED = Set.of(NullPointerException.class,
            IllegalArgumentException.class, IndexOutOfBoundsException.class,
            IllegalStateException.class, NoSuchElementException.class, CancellationException.class,
            LibraryNotFoundException.class, WaveSynthesisException.class);

    private final Random random;
    private final RandomPool pool;
    private final RandomArguments arguments;
    private final Map<Executable, Integer> returned;
    private final Queue<String> faults;
    private boolean nested;

    /**
     * @param returned counts the calls of each method that returned
     * @param faults receives each exception that is not documented
     */
    RandomCaller(Random random, RandomPool pool, Executor executor,
            Map<Executable, Integer> returned, Queue<String> faults) {
        this.random = random;
        this.pool = pool;
        this.returned = returned;
        this.faults = faults;
        arguments = new RandomArguments(random, pool, executor, this::nested);
    }

    void step() {
        int chosen = random.nextInt(1000);
        if (chosen < 8) {
            attempt("a run", this::run);
        } else if (chosen < 10) {
            attempt("an analysis", this::analysis);
        } else if (chosen < 30) {
            attempt("a future", this::future);
        } else if (chosen == 30 && random.nextInt(4) == 0) {
            System.gc();
        } else {
            call();
        }
    }

    private void call() {
        Executable method = RandomCalls.METHODS.get(random.nextInt(RandomCalls.METHODS.size()));
        if (RandomCalls.ends(method) && random.nextInt(10) > 0)
            return;
        boolean hasTarget = !Modifier.isStatic(method.getModifiers())
                && !(method instanceof java.lang.reflect.Constructor);
        Object target = hasTarget ? pool.any(method.getDeclaringClass(), random) : null;
        if (hasTarget && target == null)
            return;
        attempt(RandomCalls.label(method), () -> {
            keep(RandomCalls.invoke(method, target, arguments.of(method, target)));
            returned.merge(method, 1, Integer::sum);
        });
    }

    private interface Body {
        void run() throws Throwable;
    }

    private void attempt(String label, Body body) {
        try {
            body.run();
        } catch (Throwable thrown) {
            if (!isDocumented(thrown))
                faults.add(label + ": " + describe(thrown));
        }
    }

    /** Messages that the JVM makes for accidents are not those of the API. */
    private static boolean isDocumented(Throwable thrown) {
        String message = thrown.getMessage();
        boolean accident = thrown instanceof NullPointerException
                ? String.valueOf(message).startsWith("Cannot ")
                : thrown instanceof IndexOutOfBoundsException
                        && String.valueOf(message).startsWith("Index ");
        return DOCUMENTED.contains(thrown.getClass()) && message != null && !message.isBlank()
                && !accident;
    }

    private static String describe(Throwable thrown) {
        StringBuilder text = new StringBuilder(shortened(thrown.toString()));
        StackTraceElement[] trace = thrown.getStackTrace();
        for (int i = 0; i < Math.min(8, trace.length); ++i) text.append("\n    ").append(trace[i]);
        return text.toString();
    }

    private static String shortened(String text) {
        return text.length() < 300 ? text : text.substring(0, 300) + " ...";
    }

    private void keep(Object result) {
        if (result instanceof Collection<?> several) {
            several.stream().limit(5).forEach(this::keep);
        } else if (result instanceof CompletableFuture
                || result != null && result.getClass().getName().startsWith("tidelab.waves.")) {
            pool.add(result, random);
        }
    }

    /** Another call within a consumer of lines, but none within that. */
    private void nested() {
        if (nested)
            return;
        nested = true;
        try {
            call();
        } finally {
            nested = false;
        }
    }

    private void future() {
        CompletableFuture<?> future = pool.any(CompletableFuture.class, random);
        if (future == null)
            return;
        if (random.nextBoolean())
            future.cancel(random.nextBoolean());
        if (future.isCompletedExceptionally() && !future.isCancelled()) {
            future.exceptionally(thrown -> {
                attempt("a build", () -> { throw thrown; });
                return null;
            });
        }
    }

    /** Most calls need objects that only a certain order of calls makes. */
    private void run() {
        Experiment experiment = pool.any(Experiment.class, random);
        if (experiment == null || experiment.isClosed() || random.nextInt(8) == 0) {
            experiment =
                    Experiment.builder().workers(1 + random.nextInt(3)).silent().open(Tanks.FLUME);
        }
        keep(experiment);
        keep(experiment.banks());
        Definition definition = Tanks.wave(experiment, 1.0, 0.05, 1);
        keep(definition);
        keep(definition.settings());
        Specification place = definition.specifications().get(0);
        keep(place);
        keep(place.addSpectrum("flat", "0.3@Hz#0.0001@m2s#1.2@Hz"));
        place.components().get(1).set();
        keep(place.components());
        Component record = place.addTimeSeries("record", "mm", new RandomValues(random).samples());
        record.set("rate", "50 Hz", "scale_ratio", 1, "ramp_time", "1 s", "ramp_type",
                record.settings().isSet("ramp_type") ? record.settings().choice("ramp_type")
                                                     : Ramp.values()[0]);
        keep(record);
        tidelab.waves.Modifier phases = place.addModifier(ModifierType.PhaseRandom, "");
        phases.set("ran_gen", RanGen.FullRandom, "seed", 17);
        keep(phases);
        Run built = definition.build();
        keep(built);
        keep(built.fronts());
        keep(built.paddleMotion("20 Hz"));
        keep(built.point(RandomValues.RIGHT.get("point")));
        keep(built.animation(RandomValues.RIGHT.get("animation")));
    }

    private void analysis() {
        Analysis analysis = pool.any(Analysis.class, random);
        if (analysis == null || analysis.isClosed())
            analysis = Probes.analysis();
        keep(analysis);
        double[][] records = new double[Probes.PLACES.length][500];
        Probes.addTrain(records, 0.05, Tanks.TWO_PI, Tanks.waveNumber(Tanks.TWO_PI), 0);
        var series = Probes.add(analysis, records);
        keep(series);
        keep(analysis.createSet(series, "0 s", "10 s"));
    }
}
