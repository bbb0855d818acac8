/**
 * Drive signals for laboratory wave tanks. {@link tidelab.waves} is the interface for hosts, with
 * objects and exceptions. {@link tidelab.KelpboxNativeLibrary} has the functions of the native
 * library below it.
 */
module tidelab.waves {
    exports tidelab.waves;
    exports tidelab.waves.component;
    exports tidelab.KelpboxNativeLibrary;
}
