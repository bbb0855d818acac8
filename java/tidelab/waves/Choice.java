package tidelab.waves;

/**
 * A member of one of the library's enumerations, as the value of a setting. The constants carry the
 * library's own names.
 *
 * <p>Example: {@code Settings.of("wave_merge", WaveMerge.Null)}. The library's {@code Bool} is a
 * Java {@code boolean}.
 */
public sealed interface Choice permits DataMod, Geometry, ModifierType, RanGen, Ramp, SpreadFunc,
        WaveMerge, Window {
    /** {@return the library's name of the member, such as "RMS"} */
    String member();

    /** {@return the library's name of the enumeration, such as "WaveMerge"} */
    String type();
}
