package tidelab.waves;

/**
 * The wave trains that travel along a direction and back, separated from the records of several
 * probes. Made by {@link ProbeSet#waveTrains(Object...)}.
 *
 * <p>All six are amplitudes in m. A free wave has the wave number of its own frequency. A bound one
 * accompanies the fundamental, with twice its wave number. With three independent probes only the
 * fundamental is separated, and the four harmonics are 0 without a message.
 *
 * <pre>{@code
 * WaveTrains trains = set.waveTrains("freq", "0.7 Hz", "angle", "0 rad");
 * System.out.printf("reflection coefficient %.3f%n", trains.reflection());
 * }</pre>
 *
 * @param forwardFreeFundamental "Forward free fundamental" in m
 * @param backwardFreeFundamental "Backward free fundamental" in m
 * @param forwardBoundHarmonic "Forward bound harmonic" in m, at twice the fundamental frequency
 * @param backwardBoundHarmonic "Backward bound harmonic" in m
 * @param forwardFreeHarmonic "Forward free harmonic" in m
 * @param backwardFreeHarmonic "Backward free harmonic" in m
 */
public record WaveTrains(double forwardFreeFundamental, double backwardFreeFundamental,
        double forwardBoundHarmonic, double backwardBoundHarmonic, double forwardFreeHarmonic,
        double backwardFreeHarmonic) {
    /**
     * The reflection coefficient of the fundamental.
     *
     * @return backward over forward amplitude, without units; NaN if both are 0
     */
    public double reflection() {
        return backwardFreeFundamental / forwardFreeFundamental;
    }

    static WaveTrains of(Settings results) {
        return new WaveTrains(results.get("Forward free fundamental", ""),
                results.get("Backward free fundamental", ""),
                results.get("Forward bound harmonic", ""),
                results.get("Backward bound harmonic", ""),
                results.get("Forward free harmonic", ""),
                results.get("Backward free harmonic", ""));
    }
}
