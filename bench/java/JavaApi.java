import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.lang.management.ManagementFactory;
import java.lang.management.ThreadMXBean;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.function.IntConsumer;
import tidelab.waves.*;

/**
 * Times calls through the Java API and their floors, and a whole run. Prints the name and the
 * processor seconds of one call; bench/java_api.py makes a table of them.
 *
 * <p>usage: JavaApi SITE REPETITIONS. The site has one bank of 128 paddles.
 */
public final class JavaApi {
    private static final ThreadMXBean THREADS = ManagementFactory.getThreadMXBean();
    private static final String SEA = "0.35@Hz#5/16*hs[m]^2/tp[s]^4/$[Hz]^5"
            + "*exp(-1.25/(tp[s]*$[Hz])^4)@m2s#1.4@Hz";
    private static Object kept; // so that no call is optimised away

    private final Path site;
    private final int repetitions;

    private JavaApi(Path site, int repetitions) {
        this.site = site;
        this.repetitions = repetitions;
    }

    public static void main(String[] arguments) {
        JavaApi api = new JavaApi(Path.of(arguments[0]), Integer.parseInt(arguments[1]));
        for (int i = 0; i <= api.repetitions; ++i) api.run(i > 0);
        api.calls();
    }

    /** As bench/java_run.cpp. The processor time is that of this thread: without the collector. */
    private void run(boolean shown) {
        long start = THREADS.getCurrentThreadCpuTime();
        double[][] signals;
        long built;
        long read;
        try (Experiment tank = Experiment.builder().silent().open(site)) {
            Run run = define(tank).build();
            long before = THREADS.getCurrentThreadCpuTime();
            PaddleMotion motion = run.paddleMotion("64 Hz");
            built = THREADS.getCurrentThreadCpuTime() - before;
            before = THREADS.getCurrentThreadCpuTime();
            signals = motion.signals(0);
            read = THREADS.getCurrentThreadCpuTime() - before;
        }
        long spent = THREADS.getCurrentThreadCpuTime() - start;
        if (!shown)
            return;
        System.out.printf("run %.9f %d%n", spent * 1e-9, signals.length * signals[0].length);
        System.out.printf("build %.9f%n", built * 1e-9);
        System.out.printf("first-read %.9f%n", read * 1e-9);
    }

    private static Definition define(Experiment tank) {
        Definition definition = tank.addDefinition("sea");
        Specification place = definition.addSpecification();
        place.set("x", "12 m", "y", "10 m", "t", "0 s");
        place.addSpectrum("sea", SEA).set("hs", "80 mm", "tp", "1.6 s");
        place.addModifier(ModifierType.PhaseRandom, "")
                .set("ran_gen", RanGen.FullRandom, "seed", 7);
        definition.set("repeat", "512 s", "dalrymple", false, "wave_merge", WaveMerge.Null);
        return definition;
    }

    private void calls() {
        long handle = new_Kelpbox_Experiment__SWIG_0();
        Kelpbox_Experiment_initialise(handle, null, site.toString());
        long bareRun = Kelpbox_Experiment_add_definition(handle, null, "bare");
        long bareWave = Kelpbox_Experiment_add_single(
                handle, null, Kelpbox_Experiment_add_specification(handle, null, bareRun));
        try (Experiment tank = Experiment.open(site);
                Experiment silent = Experiment.builder().silent().open(site)) {
            Definition definition = define(tank);
            PaddleMotion motion = definition.build().paddleMotion("64 Hz");
            Component wave = definition.specifications().get(0).addSingle();
            Settings values =
                    Settings.of("f", "0.8 Hz", "a", "25 mm", "angle", "0 deg", "phase", "0 rad");

            time("name/bare", 20_000, i -> kept = Kelpbox_Experiment_context_name(handle, null));
            time("name/api", 20_000, i -> kept = tank.siteName());
            time("name/silent", 20_000, i -> kept = silent.siteName());
            time("set/bare", 5_000, i -> bareSet(handle, bareWave));
            time("set/api", 5_000, i -> kept = wave.set(values));

            double[][] source = motion.signals(0);
            double[][] target = new double[source.length][source[0].length];
            time("read/copied", 10, i -> {
                for (int p = 0; p < source.length; ++p) {
                    System.arraycopy(source[p], 0, target[p], 0, source[p].length);
                }
            });
            time("read/cloned", 10, i -> {
                for (int p = 0; p < source.length; ++p) target[p] = source[p].clone();
            });
            time("read/api", 10, i -> kept = motion.signals(0));
        }
        delete_Kelpbox_Experiment(handle);
    }

    /** What a host does that sets the same values and reads them back. */
    private static void bareSet(long handle, long wave) {
        long params = new_Kelpbox_Params();
        Kelpbox_Params_insert__SWIG_0(params, null, "f", 0.8, "Hz");
        Kelpbox_Params_insert__SWIG_0(params, null, "a", 25, "mm");
        Kelpbox_Params_insert__SWIG_0(params, null, "angle", 0, "deg");
        Kelpbox_Params_insert__SWIG_0(params, null, "phase", 0, "rad");
        Kelpbox_Experiment_set__SWIG_1(handle, null, wave, params, null);
        kept = Kelpbox_Params_get(params, null, "f", "Hz")
                + Kelpbox_Params_get(params, null, "a", "m")
                + Kelpbox_Params_get(params, null, "angle", "rad")
                + Kelpbox_Params_get(params, null, "phase", "rad");
        delete_Kelpbox_Params(params);
    }

    /** The first third of the calls is not counted, so that they are compiled. */
    private void time(String name, int calls, IntConsumer body) {
        for (int i = 0; i < calls * repetitions / 2; ++i) body.accept(i);
        double[] seconds = new double[repetitions];
        for (int r = 0; r < repetitions; ++r) {
            long start = THREADS.getCurrentThreadCpuTime();
            for (int i = 0; i < calls; ++i) body.accept(i);
            seconds[r] = (THREADS.getCurrentThreadCpuTime() - start) * 1e-9 / calls;
        }
        Arrays.sort(seconds);
        System.out.printf("%s %.12f%n", name, seconds[repetitions / 2]);
    }
}
