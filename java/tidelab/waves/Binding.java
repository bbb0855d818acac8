package tidelab.waves;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/**
 * The library that the native declarations of this class loader are bound to. If two libraries were
 * loaded, the JVM would take each function from either of them.
 */
final class Binding {
    private Binding() {}

    /**
     * The version of the library, "unknown" if it does not report it, or null without a library.
     */
    static String version() {
        try {
            return Native.version();
        } catch (UnsatisfiedLinkError | IllegalCallerException e) {
            return hasVectors() ? "unknown" : null;
        }
    }

    // Libraries from before Native have vectors.
    private static boolean hasVectors() {
        try {
            // Does nothing with 0, and needs no memory.
            KelpboxNativeLibraryJNI.delete_Kelpbox_StdVectorDouble(0);
            return true;
        } catch (UnsatisfiedLinkError | IllegalCallerException e) {
            return false;
        }
    }

    /** Fails if the library is loaded in one class loader and the host's calls are in another. */
    static void requireOneClassLoader() {
        if (KelpboxNativeLibraryJNI.class.getClassLoader() != Binding.class.getClassLoader()) {
            throw new IllegalStateException(
                    "tidelab.waves and tidelab.KelpboxNativeLibrary come from different class"
                    + " loaders. Put kelpbox.jar on the class path once");
        }
    }

    /** The one mapped file with the library's name, or null if there is none or more than one. */
    static Path loadedByHost() {
        try (Stream<String> maps = Files.lines(Path.of("/proc/self/maps"))) {
            List<String> files = maps.filter(line -> line.endsWith("/" + Loader.FILE))
                                         .map(line -> line.substring(line.indexOf('/')))
                                         .distinct()
                                         .collect(Collectors.toList());
            return files.size() == 1 ? Path.of(files.get(0)) : null;
        } catch (IOException e) {
            return null;
        }
    }
}
