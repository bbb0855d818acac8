package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.concurrent.CountDownLatch;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;

/** Several threads at once. */
class ThreadsTest {
    private final ExecutorService threads = Executors.newFixedThreadPool(4);

    @AfterEach
    void stop() {
        threads.shutdownNow();
    }

    /** A sea with its own seed, and the signal that it gives. */
    private static double[] sea(Experiment experiment, int seed) {
        Definition definition = experiment.addDefinition("sea " + seed);
        definition.set("repeat", "64 s", "dalrymple", false, "wave_merge", WaveMerge.Null);
        Specification place = Tanks.place(definition);
        place.addSpectrum("flat", "0.3@Hz#0.001@m2s#1.2@Hz").set();
        place.addModifier(ModifierType.PhaseRandom, "")
                .set("ran_gen", RanGen.FullRandom, "seed", seed);
        double[] signal = definition.build().paddleMotion("50 Hz").signal(0, 0);
        definition.remove();
        return signal;
    }

    /**
     * The signals of seas with the seeds 1 to 8, one after the other in an experiment of its own.
     */
    private static List<double[]> alone() {
        List<double[]> signals = new ArrayList<>();
        try (Experiment experiment = Tanks.flume()) {
            for (int seed = 1; seed <= 8; ++seed) signals.add(sea(experiment, seed));
        }
        return signals;
    }

    private static <T> List<T> results(List<Future<T>> futures)
            throws InterruptedException, ExecutionException {
        List<T> results = new ArrayList<>();
        for (Future<T> future : futures) results.add(future.get());
        return results;
    }

    private <T> List<Future<T>> start(int count, java.util.function.IntFunction<Callable<T>> task) {
        CountDownLatch all = new CountDownLatch(Math.min(count, 4));
        List<Future<T>> futures = new ArrayList<>();
        for (int i = 0; i < count; ++i) {
            Callable<T> each = task.apply(i);
            futures.add(threads.submit(() -> {
                all.countDown();
                all.await();
                return each.call();
            }));
        }
        return futures;
    }

    @Test
    void threadsThatShareAnExperimentGetWhatTheyWouldGetAlone() throws Exception {
        List<double[]> expected = alone();
        try (Experiment experiment = Tanks.flume()) {
            List<Future<double[]>> futures = start(8, i -> () -> sea(experiment, i + 1));
            List<double[]> signals = results(futures);
            for (int i = 0; i < 8; ++i) assertArrayEquals(expected.get(i), signals.get(i), 0.0);
            assertEquals(List.of(), experiment.definitions());
        }
    }

    @Test
    void experimentsAtTheSameTimeGetWhatTheyWouldGetAlone() throws Exception {
        List<double[]> expected = alone();
        for (List<double[]> signals : results(start(4, i -> ThreadsTest::alone))) {
            for (int i = 0; i < 8; ++i) assertArrayEquals(expected.get(i), signals.get(i), 0.0);
        }
    }

    @Test
    void eachConsumerReceivesTheLinesOfItsOwnExperimentOnly() throws Exception {
        List<Future<List<String>>> futures = start(4, i -> () -> {
            List<String> lines = new ArrayList<>();
            try (Experiment experiment =
                            Experiment.builder().output(lines::add).open(Tanks.FLUME)) {
                Definition definition = Tanks.definition(experiment, "run");
                Tanks.place(definition)
                        .addTimeExpression("pulse" + i, "0@s#0.1*sin($[s])@m#9@s")
                        .set("rate", "20 Hz");
                for (int round = 0; round < 20; ++round) definition.build();
            }
            return lines;
        });
        int i = 0;
        for (List<String> lines : results(futures)) {
            String own = "Time series \"pulse" + i++ + "\" ";
            List<String> named =
                    lines.stream().filter(line -> line.startsWith("Time series")).toList();
            assertEquals(20, named.size());
            for (String line : named) assertTrue(line.startsWith(own), line);
        }
    }

    @Test
    void aCloseWaitsForTheCallsThatAreRunning() throws Exception {
        for (int round = 0; round < 20; ++round) {
            Experiment experiment = Tanks.flume();
            Definition definition = Tanks.wave(experiment, 0.5, 0.1, 0);
            List<Future<Integer>> futures = start(4, i -> () -> {
                if (i == 3) {
                    experiment.close();
                    return 0;
                }
                int calls = 0;
                try {
                    while (calls < 100000) {
                        definition.settings();
                        definition.build();
                        ++calls;
                    }
                } catch (IllegalStateException closed) {
                    assertEquals("experiment \"flume\" is closed", closed.getMessage());
                }
                return calls;
            });
            for (int calls : results(futures)) assertTrue(calls < 100000);
        }
    }

    @Test
    void watchingTakesNoTurnAndKeepsItemsInPlace() throws Exception {
        try (Experiment experiment = Tanks.flume()) {
            Handle handle = experiment.handle();
            CountDownLatch called = new CountDownLatch(1);
            CountDownLatch watched = new CountDownLatch(1);
            Future<Boolean> call = threads.submit(() -> handle.call(address -> {
                called.countDown();
                try {
                    watched.await();
                    return true;
                } catch (InterruptedException e) {
                    return false;
                }
            }));
            called.await();
            assertTrue(threads.submit(() -> handle.watch(address -> address != 0)).get());
            watched.countDown();
            assertTrue(call.get());
        }
    }
}
