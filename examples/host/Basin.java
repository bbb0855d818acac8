import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Locale;

/**
 * A host in one file: reads the site of a wide basin, asks for a focused wave group and for an
 * oblique regular wave between side walls, and writes what the paddles have to do.
 *
 * <p>Usage: {@code java Basin <library> <site script> <output folder>}. Ends with 1 when its own
 * check of the focus fails.
 */
public final class Basin {

    // The group: a JONSWAP sea whose crests all meet at one point at one time.
    static final double HS = 0.06; // m
    static final double FP = 0.6; // Hz
    static final double GAMMA = 3.3;
    static final double F_LOW = 0.35; // Hz
    static final double F_HIGH = 1.4; // Hz
    static final double FOCUS_X = 12.0; // m
    static final double FOCUS_Y = 9.0; // m
    static final double FOCUS_T = 32.0; // s
    static final double REPEAT = 64.0; // s
    static final double RATE = 50.0; // Hz, of the drive signals

    /** The density as the library reads it: limit, formula, limit, formula, limit. */
    static final String JONSWAP = String.join("#",
            "f_low[Hz] @Hz", density("0.07") + " @m2s",
            "fp[Hz] @Hz", density("0.09") + " @m2s",
            "f_high[Hz] @Hz");

    private static String density(String width) {
        return "0.0624/(0.230+0.0336*peakedness-0.185/(1.9+peakedness))"
                + "*Hs[m]^2*fp[Hz]^4/$[Hz]^5*exp(-1.25*(fp[Hz]/$[Hz])^4)"
                + "*peakedness^exp(-square($[Hz]/fp[Hz]-1)/(2*square(" + width + ")))";
    }

    /** The same density in m2s, for the check. */
    static double jonswap(double f) {
        double alpha = 0.0624 / (0.230 + 0.0336 * GAMMA - 0.185 / (1.9 + GAMMA));
        double width = f < FP ? 0.07 : 0.09;
        double peak = Math.exp(-Math.pow(f / FP - 1, 2) / (2 * width * width));
        return alpha * HS * HS * Math.pow(FP, 4) / Math.pow(f, 5)
                * Math.exp(-1.25 * Math.pow(FP / f, 4)) * Math.pow(GAMMA, peak);
    }

    private final long experiment = new_Kelpbox_Experiment__SWIG_0();
    private final Path out;

    private Basin(String site, Path out) {
        this.out = out;
        Kelpbox_Experiment_initialise(experiment, null, site);
    }

    public static void main(String[] args) throws IOException {
        Locale.setDefault(Locale.ROOT);
        System.load(Path.of(args[0]).toAbsolutePath().toString());
        Path out = Files.createDirectories(Path.of(args[2]));
        Basin basin = new Basin(args[1], out);
        basin.site();
        boolean focused = basin.group();
        basin.oblique();
        delete_Kelpbox_Experiment(basin.experiment);
        System.exit(focused ? 0 : 1);
    }

    private void site() {
        long banks = Kelpbox_Experiment_paddle_banks(experiment, null);
        System.out.printf("site      %s%n", Kelpbox_Experiment_context_string(experiment, null));
        for (long bank = 0; bank < banks; ++bank) {
            long info = new_Kelpbox_Params();
            String name = Kelpbox_Experiment_paddle_bank_info(experiment, null, bank, info, null);
            System.out.printf("bank      %s, %d paddles, signals in %s%n", name,
                    Kelpbox_Experiment_paddle_bank_size(experiment, null, bank), dataUnits(info));
            delete_Kelpbox_Params(info);
        }
    }

    /** The units of a bank's signals: radians for flaps, metres for pistons. */
    private static String dataUnits(long info) {
        long list = Kelpbox_Params_param_list(info, null);
        for (int i = 0; i < Kelpbox_StdVectorParam_size(list, null); ++i) {
            long param = Kelpbox_StdVectorParam_get(list, null, i);
            if (Kelpbox_Param_name(param, null).equals("data_units")) {
                String units = Kelpbox_Param_units(param, null);
                return units.equals("deg") || units.equals("rad") ? "rad" : "m";
            }
        }
        throw new IllegalStateException("a bank without data_units");
    }

    private boolean group() throws IOException {
        long run = Kelpbox_Experiment_add_definition(experiment, null, "focused group");
        long waves = specification(run, FOCUS_X, FOCUS_Y, FOCUS_T);
        long spectrum = Kelpbox_Experiment_add_spectrum(experiment, null, waves, "JONSWAP", JONSWAP);
        long params = new_Kelpbox_Params();
        number(params, "Hs", HS, "m");
        number(params, "fp", FP, "Hz");
        number(params, "peakedness", GAMMA, "");
        number(params, "f_low", F_LOW, "Hz");
        number(params, "f_high", F_HIGH, "Hz");
        set(spectrum, params);
        build(run, "False");
        report("group", run);
        writeSignals("group", run);
        writeFronts("group", run);

        double predicted = 0;
        long grid = Kelpbox_Experiment_repeat(experiment, null, run);
        double step = 1 / Kelpbox_RunData_value(grid, null);
        long last = Kelpbox_RunData_wave_num(grid, null, F_HIGH);
        for (long h = Kelpbox_RunData_wave_num(grid, null, F_LOW); h <= last; ++h) {
            predicted += Math.sqrt(2 * jonswap(h * step) * step);
        }
        double crest = new Propagation(experiment).elevation(run, FOCUS_X, FOCUS_Y, FOCUS_T);
        boolean good = Math.abs(crest / predicted - 1) < 0.01;
        System.out.printf("focus     crest %.4f m at x %.1f m, y %.1f m, t %.1f s; the spectrum predicts"
                + " %.4f m: %s%n", crest, FOCUS_X, FOCUS_Y, FOCUS_T, predicted,
                good ? "good" : "WRONG");
        return good;
    }

    private void oblique() throws IOException {
        long run = Kelpbox_Experiment_add_definition(experiment, null, "oblique wave");
        long waves = specification(run, 0, 0, 0);
        long single = Kelpbox_Experiment_add_single(experiment, null, waves);
        long params = new_Kelpbox_Params();
        number(params, "f", 0.75, "Hz");
        number(params, "a", 20, "mm");
        number(params, "angle", 25, "deg");
        number(params, "phase", 0, "rad");
        set(single, params);
        build(run, "True");
        report("oblique", run);
        writeSignals("oblique", run);
        writeFronts("oblique", run);
    }

    private long specification(long run, double x, double y, double t) {
        long id = Kelpbox_Experiment_add_specification(experiment, null, run);
        long params = new_Kelpbox_Params();
        number(params, "x", x, "m");
        number(params, "y", y, "m");
        number(params, "t", t, "s");
        set(id, params);
        return id;
    }

    private void build(long run, String dalrymple) {
        long params = new_Kelpbox_Params();
        number(params, "repeat", REPEAT, "s");
        choice(params, "dalrymple", dalrymple, "Bool");
        choice(params, "wave_merge", "Null", "WaveMerge");
        set(run, params);
        Kelpbox_Experiment_run_build(experiment, null, run);
        params = new_Kelpbox_Params();
        number(params, "rate", RATE, "Hz");
        Kelpbox_Experiment_paddle_motion_build(experiment, null, run, params, null);
        delete_Kelpbox_Params(params);
    }

    private void report(String name, long run) {
        long grid = Kelpbox_Experiment_repeat(experiment, null, run);
        long fronts = Kelpbox_Experiment_fronts__SWIG_2(experiment, null, run);
        System.out.printf("%-9s repeat %.3f s as fitted, harmonics %d to %d, %d fronts at the paddles%n",
                name, Kelpbox_RunData_value(grid, null), Kelpbox_RunData_harmonic(grid, null, 1),
                Kelpbox_RunData_harmonic(grid, null, 0), Kelpbox_StdVectorFront_size(fronts, null));
        for (long bank = 0; bank < Kelpbox_Experiment_paddle_banks(experiment, null); ++bank) {
            long stats = new_Kelpbox_Params();
            Kelpbox_Experiment_paddle_motion_stats(experiment, null, run, bank, stats, null);
            boolean clipped =
                    !Kelpbox_StdVectorParam_isEmpty(Kelpbox_Params_param_list(stats, null), null);
            System.out.printf("          bank %d: %s%n", bank + 1, clipped
                    ? String.format("%.2g of the half waves clip",
                            Kelpbox_Params_get(stats, null, "clip_peak_ratio", ""))
                    : "nothing clips");
            delete_Kelpbox_Params(stats);
        }
        long messages = Kelpbox_Experiment_messages(experiment, null, run);
        long count = Kelpbox_StdVectorString_size(messages, null);
        System.out.printf("          %s%n", count == 0 ? "no messages" : count + " messages:");
        for (int i = 0; i < count; ++i) {
            System.out.printf("          %s%n", Kelpbox_StdVectorString_get(messages, null, i));
        }
        delete_Kelpbox_StdVectorString(messages);
    }

    /** A row for each sample: the time, then the signal of each paddle of each bank. */
    private void writeSignals(String name, long run) throws IOException {
        StringBuilder header = new StringBuilder("time_s");
        java.util.List<double[]> signals = new java.util.ArrayList<>();
        for (long bank = 0; bank < Kelpbox_Experiment_paddle_banks(experiment, null); ++bank) {
            long info = new_Kelpbox_Params();
            Kelpbox_Experiment_paddle_bank_info(experiment, null, bank, info, null);
            String units = dataUnits(info);
            delete_Kelpbox_Params(info);
            long paddles = Kelpbox_Experiment_paddle_bank_size(experiment, null, bank);
            for (long paddle = 0; paddle < paddles; ++paddle) {
                header.append(String.format(",bank%d_paddle%d_%s", bank + 1, paddle + 1, units));
                signals.add(array(
                        Kelpbox_Experiment_paddle_motion_data(experiment, null, run, bank, paddle)));
            }
        }
        try (PrintWriter file = writer(name + "_signals.csv")) {
            file.println(header);
            for (int j = 0; j < signals.get(0).length; ++j) {
                StringBuilder row = new StringBuilder(String.format("%.4f", j / RATE));
                for (double[] signal : signals) {
                    row.append(String.format(",%.9g", signal[j]));
                }
                file.println(row);
            }
        }
    }

    private void writeFronts(String name, long run) throws IOException {
        long fronts = Kelpbox_Experiment_fronts__SWIG_2(experiment, null, run);
        try (PrintWriter file = writer(name + "_fronts.csv")) {
            file.println("frequency_Hz,amplitude_m,angle_rad,phase_rad");
            for (int i = 0; i < Kelpbox_StdVectorFront_size(fronts, null); ++i) {
                long front = Kelpbox_StdVectorFront_get(fronts, null, i);
                file.printf("%.9g,%.9g,%.9g,%.9g%n", Kelpbox_Front_get_freq(front, null),
                        Kelpbox_Front_get_amp(front, null), Kelpbox_Front_get_angle(front, null),
                        Kelpbox_Front_get_phase(front, null));
            }
        }
    }

    private PrintWriter writer(String name) throws IOException {
        Path path = out.resolve(name);
        System.out.printf("          %s%n", path);
        return new PrintWriter(Files.newBufferedWriter(path));
    }

    static double[] array(long vector) {
        double[] result = new double[(int) Kelpbox_StdVectorDouble_size(vector, null)];
        for (int i = 0; i < result.length; ++i) {
            result[i] = Kelpbox_StdVectorDouble_get(vector, null, i);
        }
        return result;
    }

    static void number(long params, String name, double value, String units) {
        Kelpbox_Params_insert__SWIG_0(params, null, name, value, units);
    }

    private static void choice(long params, String name, String member, String type) {
        Kelpbox_Params_insert__SWIG_1(params, null, name, member, type);
    }

    private void set(long id, long params) {
        Kelpbox_Experiment_set__SWIG_1(experiment, null, id, params, null);
        delete_Kelpbox_Params(params);
    }
}
