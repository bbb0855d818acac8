package tidelab.waves;

/**
 * The native functions of this package. Arrays cross the boundary in one call, and every failure,
 * exhausted memory included, is a {@code WaveSynthesisException}, so none of these functions ends
 * the process. Only addresses that the package itself has received from the library are passed.
 *
 * <p>Strings are passed as UTF-8 in byte arrays, so that any character of a path survives.
 */
final class Native {
    private Native() {}

    // The library

    /** The version of the library, such as "0.1.0". */
    static native String version();

    /**
     * Collects the lines that the calling thread makes the library write to standard output, and
     * those about faults in a site script to standard error, instead of writing them. One thread's
     * switch does not affect another's.
     */
    static native void captureOutput(boolean on);

    /**
     * What was collected on this thread since the last call, and forgets it; null if nothing. At
     * most 1 MiB: then the last line says how many lines were left out.
     */
    static native String takeOutput();

    // Experiments and analyses

    /** Both faces of one object. Freed with {@code delete_Kelpbox_Experiment}. */
    static native long newExperiment(byte[] name);
    /**
     * Reads the site script. A division of an integer by zero is a failure with a message here,
     * not the end of the process.
     */
    static native void initialise(long experiment, byte[] file);
    /** The number of threads that builds may use; at least 1. */
    static native void setWorkers(long experiment, int workers);

    // The site

    static native String siteName(long experiment);
    static native String siteText(long experiment);
    static native void constants(long experiment, long params);
    static native void querySite(long experiment, long params);
    static native void setSite(long experiment, long params);
    static native double[] profile(long experiment, long params);
    static native int banks(long experiment);
    /** The name of a bank. Adds its limits, and its units as "data_units". */
    static native String bank(long experiment, long bank, long params);
    /** Four numbers for each paddle: its number, x and y in m, angle in rad. */
    static native double[] paddles(long experiment, long bank);

    // Parameters, packed: for each one its name, its units or enumeration member, and its
    // enumeration type (null for a number).

    static native long newParams(String[] names, double[] values, String[] units, String[] types);
    /** Names, units or members, and enumeration types, three strings for each parameter. */
    static native String[] paramTexts(long params);
    /** The values, in the order of {@link #paramTexts}; 0 for members of enumerations. */
    static native double[] paramValues(long params);
    /** The remarks that the library has added. */
    static native String[] paramComments(long params);
    /** The factor from one unit to another. */
    static native double convert(byte[] from, byte[] to);

    // The tree. Each returns the ID of the new item.

    static native long addDefinition(long experiment, byte[] name);
    static native long addSpecification(long experiment, long definition);
    /** Four numbers for each front: frequency in Hz, amplitude in m, angle and phase in rad. */
    static native long addFronts(long experiment, long specification, double[] fronts);
    static native long addSingle(long experiment, long specification);
    static native long addSpectrum(long experiment, long specification, byte[] name, byte[] text);
    static native long addTimeExpression(
            long experiment, long specification, byte[] name, byte[] text);
    /** The vector must live until the component has been removed. */
    static native long addTimeSeries(long experiment, long specification, long vector);
    static native long addModifier(long experiment, long specification, byte[] type, byte[] text);
    /** A Vector with a copy of the samples. Freed with {@code delete_Kelpbox_Vector}. */
    static native long newVector(byte[] label, byte[] units, double[] samples);

    static native void queryItem(long experiment, long item, long params);
    static native void setItem(long experiment, long item, long params);
    /** Removes an item and everything that was added to it. */
    static native void remove(long experiment, long item);
    /** Removes all items. */
    static native void clear(long experiment);
    /** Declares the parameters of formulas that are separated by #. */
    static native void formulaParameters(byte[] text, long params);

    // Runs. Each writes back what it has fitted.

    static native void buildRun(long experiment, long definition);
    static native void buildMotion(long experiment, long definition, long params);
    static native void motionStatistics(long experiment, long definition, long bank, long params);
    static native void buildPoint(long experiment, long definition, long params);
    static native void pointStatistics(long experiment, long definition, long params);
    /** Checks the grid of an animation, and makes frames for it unless there are some. */
    static native void layOutFrames(long experiment, long definition, long params);
    static native void buildColumns(long experiment, long definition, long first, long afterLast);

    // Results, copied. A failure has the library's own message.

    /**
     * The repeat time in s, one more than the highest harmonic, the lowest and the highest
     * harmonic, 1 for dalrymple or 0, and the number of sets.
     */
    static native double[] repeat(long experiment, long definition);
    /** The position of a set: x and y in m, t in s. */
    static native double[] position(long experiment, long definition, long set);
    /** Four numbers for each merged front, or each front of all sets, as for addFronts. */
    static native double[] fronts(long experiment, long definition, boolean merged);
    /** Four numbers for each front of a set: harmonic, amplitude in m, angle and phase in rad. */
    static native double[] transferFronts(long experiment, long definition, long set);
    static native String[] messages(long experiment, long definition);
    static native double[] signal(long experiment, long definition, long bank, long paddle);
    /** The signals of a bank, one array for each paddle. */
    static native double[][] signals(long experiment, long definition, long bank);
    static native double[] twoD(long experiment, long definition, int which);
    static native short[] frame(long experiment, long definition, long index);

    // Analyses

    static native long addSeries(long analysis, long params, double[] samples);
    static native long createSet(long analysis, long params, int[] series);
    /** Evaluates a set, adds the results, and returns the heights of its waves in m, if any. */
    static native double[] evaluate(long analysis, long set, int kind, long settings, long results);
}
