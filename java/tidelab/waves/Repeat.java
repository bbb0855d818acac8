package tidelab.waves;

import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/**
 * The repeat time of a run and its harmonics. Harmonic {@code h} has {@code h} periods in it.
 *
 * <p>Example: {@code double lowest = run.repeat().frequency(run.repeat().lowestHarmonic());}
 *
 * @param seconds the repeat time in s, as the library has fitted it
 * @param size one more than the highest harmonic
 * @param lowestHarmonic the lowest harmonic that a run makes
 * @param highestHarmonic the highest harmonic that a run makes
 * @param dalrymple whether waves are affected by the side walls
 */
public record Repeat(
        double seconds, int size, int lowestHarmonic, int highestHarmonic, boolean dalrymple) {
    /**
     * {@return the frequency of a harmonic, in Hz}
     *
     * @param harmonic from 0 to the highest harmonic
     * @throws IndexOutOfBoundsException if it is another number
     */
    public double frequency(int harmonic) {
        return Checks.index(harmonic, highestHarmonic + 1, "harmonic") / seconds;
    }

    /** Copies a native record. */
    static Repeat at(long address) {
        return new Repeat(KelpboxNativeLibraryJNI.Kelpbox_RunData_value(address, null),
                (int) KelpboxNativeLibraryJNI.Kelpbox_RunData_size(address, null),
                (int) KelpboxNativeLibraryJNI.Kelpbox_RunData_harmonic(address, null, 1),
                (int) KelpboxNativeLibraryJNI.Kelpbox_RunData_harmonic(address, null, 0),
                KelpboxNativeLibraryJNI.Kelpbox_RunData_dalrymple(address, null));
    }
}
