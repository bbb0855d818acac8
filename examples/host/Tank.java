import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.io.IOException;
import java.io.PrintWriter;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;

/** An experiment on one site, with its runs. Writes their results to the output folder. */
final class Tank implements AutoCloseable {
    static final double RATE = 50.0; // Hz, of the drive signals

    final long experiment = new_Kelpbox_Experiment__SWIG_0();
    private final Path out;

    /** The arguments of a host are the library, the site script and the output folder. */
    Tank(String[] args) throws IOException {
        Kelpbox_Experiment_initialise(experiment, null, args[1]);
        out = Files.createDirectories(Path.of(args[2]));
    }

    /** Loads the library. Must come before the first native call. */
    static void load(String[] args) {
        Locale.setDefault(Locale.ROOT);
        System.load(Path.of(args[0]).toAbsolutePath().toString());
    }

    @Override
    public void close() {
        delete_Kelpbox_Experiment(experiment);
    }

    void describe() {
        Results.printf("site      %s%n", Kelpbox_Experiment_context_string(experiment, null));
        for (long bank = 0; bank < banks(); ++bank) {
            long info = new_Kelpbox_Params();
            String name = Kelpbox_Experiment_paddle_bank_info(experiment, null, bank, info, null);
            Results.printf("bank      %s, %d paddles, signals in %s%n", name,
                    Kelpbox_Experiment_paddle_bank_size(experiment, null, bank), dataUnits(info));
            delete_Kelpbox_Params(info);
        }
    }

    private long banks() {
        return Kelpbox_Experiment_paddle_banks(experiment, null);
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
        throw new IllegalStateException("the bank has no data_units");
    }

    long definition(String name) {
        return Kelpbox_Experiment_add_definition(experiment, null, name);
    }

    /** A group of waves. Their phases hold at the point (x, y) in m at the time t in s. */
    long specification(long run, double x, double y, double t) {
        long id = Kelpbox_Experiment_add_specification(experiment, null, run);
        long params = new_Kelpbox_Params();
        Native.number(params, "x", x, "m");
        Native.number(params, "y", y, "m");
        Native.number(params, "t", t, "s");
        set(id, params);
        return id;
    }

    void spectrum(long specification, Jonswap sea) {
        long id = Kelpbox_Experiment_add_spectrum(
                experiment, null, specification, "JONSWAP", Jonswap.TEXT);
        long params = new_Kelpbox_Params();
        sea.into(params);
        set(id, params);
    }

    /** Adds a modifier, sets it, and deletes the parameters. */
    void modifier(long specification, String type, String text, long params) {
        set(Kelpbox_Experiment_add_modifier(experiment, null, specification, type, text), params);
    }

    /** Sets an item and deletes the parameters. */
    void set(long id, long params) {
        Kelpbox_Experiment_set__SWIG_1(experiment, null, id, params, null);
        delete_Kelpbox_Params(params);
    }

    /**
     * Builds the run and its drive signals. {@code dalrymple} is a member of the enumeration Bool,
     * {@code waveMerge} one of WaveMerge.
     */
    void build(long run, double repeat, String dalrymple, String waveMerge) {
        long params = new_Kelpbox_Params();
        Native.number(params, "repeat", repeat, "s");
        Native.choice(params, "dalrymple", dalrymple, "Bool");
        Native.choice(params, "wave_merge", waveMerge, "WaveMerge");
        set(run, params);
        Kelpbox_Experiment_run_build(experiment, null, run);
        params = new_Kelpbox_Params();
        Native.number(params, "rate", RATE, "Hz");
        Kelpbox_Experiment_paddle_motion_build(experiment, null, run, params, null);
        delete_Kelpbox_Params(params);
    }

    /** Prints the results of a run, and writes its signals and fronts to files with its name. */
    void deliver(String name, long run) throws IOException {
        long grid = Kelpbox_Experiment_repeat(experiment, null, run);
        long fronts = Kelpbox_Experiment_fronts__SWIG_2(experiment, null, run);
        Results.printf(
                "%-9s fitted repeat time %.3f s, harmonics %d to %d, %d fronts at the paddles%n",
                name, Kelpbox_RunData_value(grid, null), Kelpbox_RunData_harmonic(grid, null, 1),
                Kelpbox_RunData_harmonic(grid, null, 0), Kelpbox_StdVectorFront_size(fronts, null));
        for (long bank = 0; bank < banks(); ++bank) {
            Results.printf("          bank %d: %s%n", bank + 1, clipping(run, bank));
        }
        long messages = Kelpbox_Experiment_messages(experiment, null, run);
        long count = Kelpbox_StdVectorString_size(messages, null);
        Results.printf("          %s%n", count == 0 ? "no messages" : count + " messages:");
        for (int i = 0; i < count; ++i) {
            Results.printf("          %s%n", Kelpbox_StdVectorString_get(messages, null, i));
        }
        delete_Kelpbox_StdVectorString(messages);
        writeSignals(name, run);
        writeFronts(name, run);
    }

    private String clipping(long run, long bank) {
        long stats = new_Kelpbox_Params();
        Kelpbox_Experiment_paddle_motion_stats(experiment, null, run, bank, stats, null);
        boolean clipped =
                !Kelpbox_StdVectorParam_isEmpty(Kelpbox_Params_param_list(stats, null), null);
        String text = clipped ? String.format("%.2g of the half waves clip",
                              Kelpbox_Params_get(stats, null, "clip_peak_ratio", ""))
                              : "nothing clips";
        delete_Kelpbox_Params(stats);
        return text;
    }

    /** One row per sample: the time, then the signal of each paddle of each bank. */
    private void writeSignals(String name, long run) throws IOException {
        StringBuilder header = new StringBuilder("time_s");
        List<double[]> signals = new ArrayList<>();
        for (long bank = 0; bank < banks(); ++bank) {
            long info = new_Kelpbox_Params();
            Kelpbox_Experiment_paddle_bank_info(experiment, null, bank, info, null);
            String units = dataUnits(info);
            delete_Kelpbox_Params(info);
            long paddles = Kelpbox_Experiment_paddle_bank_size(experiment, null, bank);
            for (long paddle = 0; paddle < paddles; ++paddle) {
                header.append(String.format(",bank%d_paddle%d_%s", bank + 1, paddle + 1, units));
                signals.add(Native.array(Kelpbox_Experiment_paddle_motion_data(
                        experiment, null, run, bank, paddle)));
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
        try (PrintWriter file = writer(name + "_fronts.csv")) {
            file.println("frequency_Hz,amplitude_m,angle_rad,phase_rad");
            for (Front front : Front.of(experiment, run)) {
                file.printf("%.9g,%.9g,%.9g,%.9g%n", front.frequency(), front.amplitude(),
                        front.angle(), front.phase());
            }
        }
    }

    /** Opens a file in the output folder and prints its path. */
    PrintWriter writer(String name) throws IOException {
        Path path = out.resolve(name);
        Results.printf("          %s%n", path);
        return new PrintWriter(Files.newBufferedWriter(path));
    }
}
