package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.lang.reflect.Executable;
import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Queue;
import java.util.Random;
import java.util.concurrent.ConcurrentHashMap;
import java.util.concurrent.ConcurrentLinkedQueue;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.TimeUnit;
import java.util.concurrent.TimeoutException;
import java.util.concurrent.atomic.AtomicInteger;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Tag;
import org.junit.jupiter.api.Test;

/**
 * Random calls of the whole public API, by several threads, on objects in any state. The system
 * properties {@code kelpbox.random.seed}, {@code .steps} and {@code .threads} choose other calls;
 * with one thread a seed always makes the same ones.
 */
@Tag("random")
class RandomCallsTest {
    private static final int SEED = Integer.getInteger("kelpbox.random.seed", 20240611);
    private static final int STEPS = Integer.getInteger("kelpbox.random.steps", 100_000);
    private static final int THREADS = Integer.getInteger("kelpbox.random.threads", 3);

    private final RandomPool pool = new RandomPool();
    private final Map<Executable, Integer> returned = new ConcurrentHashMap<>();
    private final Queue<String> faults = new ConcurrentLinkedQueue<>();

    @Test
    void noCallsEndTheProcessOrThrowWhatIsNotDocumented() throws Exception {
        System.out.println("Random calls with seed " + SEED + ", " + STEPS + " steps, " + THREADS
                + " threads");
        int before = Handle.live();
        addValues();
        callOnAllThreads();
        assertEquals("", faults.stream().distinct().limit(20).collect(Collectors.joining("\n")));

        List<String> never = RandomCalls.METHODS.stream()
                                     .filter(method -> !returned.containsKey(method))
                                     .map(RandomCalls::label)
                                     .collect(Collectors.toList());
        assertEquals(List.of(), never, "methods that never returned");

        pool.clear();
        Surfaces.await(() -> {
            System.gc();
            return Handle.live() <= before;
        });
    }

    /** What no call returns. */
    private void addValues() {
        Random random = new Random(SEED);
        for (Executable method : RandomCalls.METHODS) {
            Object[] members = method.getDeclaringClass().getEnumConstants();
            if (members != null)
                pool.add(members[0], random);
        }
        for (String text : List.of("80 mm", "0.8 Hz", "3", "12 deg")) {
            pool.add(Quantity.of(text), random);
        }
    }

    private void callOnAllThreads() throws InterruptedException, TimeoutException {
        ExecutorService builds = Executors.newFixedThreadPool(2);
        AtomicInteger ended = new AtomicInteger();
        List<Thread> threads = new ArrayList<>();
        for (int i = 0; i < THREADS; ++i) {
            RandomCaller caller =
                    new RandomCaller(new Random(SEED + i), pool, builds, returned, faults);
            Thread thread = new Thread(() -> {
                for (int step = 0; step < STEPS / THREADS; ++step) caller.step();
                ended.incrementAndGet();
            }, "caller " + i);
            // It receives what consumers of lines throw.
            thread.setUncaughtExceptionHandler((failed, thrown) -> {});
            threads.add(thread);
        }
        threads.forEach(Thread::start);
        for (Thread thread : threads) thread.join();
        assertEquals(THREADS, ended.get(), "threads that made all their calls");
        builds.shutdown();
        assertTrue(builds.awaitTermination(60, TimeUnit.SECONDS), "builds have ended");
    }
}
