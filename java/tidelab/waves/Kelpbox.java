package tidelab.waves;

import java.nio.file.Path;
import java.util.Objects;

/**
 * The native library: where it is found, and which version it has.
 *
 * <p>Everything in this package loads the library when it needs it. A host calls {@link #load()}
 * only to fail early, and {@link #load(Path)} to choose the file:
 *
 * <pre>{@code
 * Kelpbox.load(Path.of("/opt/kelpbox/libKelpboxSwig.so"));
 * System.out.println("Kelpbox " + Kelpbox.version() + " from " + Kelpbox.location());
 * }</pre>
 *
 * <p>{@link #load()} looks in this order and uses the first library that loads:
 *
 * <ol>
 *   <li>the file that the system property {@code kelpbox.native} names. If the property is set,
 *       nothing else is tried;
 *   <li>the copy in the jar, unpacked to a private folder below the folder that the system property
 *       {@code kelpbox.folder} names, or below {@code java.io.tmpdir}. The unpacked copy is deleted
 *       as soon as it is loaded;
 *   <li>{@code libKelpboxSwig.so} in each folder of {@code java.library.path}.
 * </ol>
 *
 * <p>The library must have the version of the jar. A JVM binds a library to the class loader of the
 * jar, which cannot replace it by another file. A library that the host has loaded in this class
 * loader with {@code System.load} is used as it is.
 *
 * <p>All methods may be called by any thread. A failed load may be repeated, for example after a
 * change of a system property.
 */
public final class Kelpbox {
    private Kelpbox() {}

    /**
     * Loads the library. Does nothing if it is loaded.
     *
     * @throws LibraryNotFoundException if no place has a library that loads and has the version of
     *     the jar; the message lists each place with the reason
     */
    public static void load() {
        Loader.load();
    }

    /**
     * Loads this file and no other. Does nothing if this file is loaded.
     *
     * @param library the file; a relative path starts at the current folder
     * @throws NullPointerException if {@code library} is null
     * @throws IllegalArgumentException if the path is inside an archive or another file system of
     *     Java's own
     * @throws LibraryNotFoundException if the file does not load or has another version than the
     *     jar
     * @throws IllegalStateException if another file is loaded; the message names both
     */
    public static void load(Path library) {
        Loader.load(Objects.requireNonNull(library, "library"));
    }

    /**
     * The version of the library, which is also the version of the jar. Loads the library first.
     *
     * @return the version, such as {@code "0.1.0"}
     * @throws LibraryNotFoundException as {@link #load()} does
     */
    public static String version() {
        load();
        return Native.version();
    }

    /**
     * The file that the library was loaded from. Loads the library first. The copy in the jar has
     * the path that it was unpacked to, although that file is deleted.
     *
     * @return an absolute path
     * @throws LibraryNotFoundException as {@link #load()} does
     * @throws IllegalStateException if the host has loaded the library itself, from a file that
     *     cannot be identified
     */
    public static Path location() {
        return Loader.location();
    }
}
