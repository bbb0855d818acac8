import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

/** Usage: {@code java JavaHost <site script>}. Loads the library by its name and names the site. */
public final class JavaHost {
    private JavaHost() {}

    public static void main(String[] args) {
        System.loadLibrary("KelpboxSwig");
        long tank = new_Kelpbox_Experiment__SWIG_0();
        Kelpbox_Experiment_initialise(tank, null, args[0]);
        System.out.println("site: " + Kelpbox_Experiment_context_name(tank, null));
        delete_Kelpbox_Experiment(tank);
    }
}
