import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import tidelab.waves.Kelpbox;

/** Usage: {@code java JarHost <site script>}. Loads the library from the jar and names the site. */
public final class JarHost {
    private JarHost() {}

    public static void main(String[] args) {
        Kelpbox.load();
        if (!Kelpbox.location().getParent().getFileName().toString().startsWith("kelpbox-")) {
            throw new IllegalStateException("not from the jar: " + Kelpbox.location());
        }
        long tank = new_Kelpbox_Experiment__SWIG_0();
        Kelpbox_Experiment_initialise(tank, null, args[0]);
        System.out.println("site: " + Kelpbox_Experiment_context_name(tank, null));
        delete_Kelpbox_Experiment(tank);
    }
}
