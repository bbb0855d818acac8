/**
 * Wave synthesis and wave analysis for a tank with paddles, as Java objects.
 *
 * <p>{@link tidelab.waves.Experiment} makes drive signals from descriptions of waves, and {@link
 * tidelab.waves.Analysis} finds waves in the records of probes. Lengths are in m, times in s,
 * frequencies in Hz and angles in rad, unless a {@link tidelab.waves.Quantity} has its own units.
 *
 * <p><b>Life.</b> Objects with {@code close} hold native memory. Closing one waits for its running
 * calls; a second close does nothing. Results are copies: arrays, lists and records that nothing
 * changes later.
 *
 * <p><b>Threads.</b> All classes may be used from several threads. Calls on one experiment or
 * analysis take turns; different ones run in parallel.
 *
 * <p><b>Failures.</b> Null arguments are a {@link java.lang.NullPointerException} with the name of
 * the argument. Uses out of order (closed, removed, out of date) are an {@link
 * java.lang.IllegalStateException}. What the library refuses is a {@link
 * tidelab.waves.component.WaveSynthesisException} with the library's own message.
 *
 * <p>Example: which site is this, and which waves can it make?
 *
 * <pre>{@code
 * try (Experiment experiment = Experiment.open(Path.of("flume.site"))) {
 *     System.out.println(experiment.siteName());
 *     System.out.println(experiment.constants().quantity("max_freq"));
 * }
 * }</pre>
 */
package tidelab.waves;
