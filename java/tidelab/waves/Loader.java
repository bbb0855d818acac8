package tidelab.waves;

import java.io.File;
import java.io.IOException;
import java.io.InputStream;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.InvalidPathException;
import java.nio.file.Path;

/**
 * Loads the library once for this class loader. {@code System.load} is called here, so the library
 * is bound to the class loader that has loaded this class and with it {@link Native}.
 */
final class Loader {
    static final String FILE = "libKelpboxSwig.so";

    private static volatile boolean ready;
    private static Path location; // guarded by the class; null if nobody knows the file

    private Loader() {}

    static void load() {
        if (ready) {
            return;
        }
        synchronized (Loader.class) {
            if (!ready) {
                loadFromAnyPlace();
            }
        }
    }

    static synchronized void load(Path library) {
        if (library.getFileSystem() != FileSystems.getDefault()) {
            throw new IllegalArgumentException("library: " + library + " is not a file of its own");
        }
        Path file = real(library);
        if (Binding.version() == null) {
            Attempts attempts = new Attempts();
            if (!loads(file, "", attempts)) {
                throw attempts.exception();
            }
        }
        useWhatIsBound();
        if (!file.equals(location)) {
            throw new IllegalStateException(
                    file + " cannot be loaded: " + loadedFile() + " is loaded already");
        }
    }

    static synchronized Path location() {
        load();
        if (location == null) {
            throw new IllegalStateException("the location is unknown: " + loadedFile());
        }
        return location;
    }

    private static void loadFromAnyPlace() {
        if (Binding.version() == null) {
            Attempts attempts = new Attempts();
            if (!loadsFromAnyPlace(attempts)) {
                throw attempts.exception();
            }
        }
        useWhatIsBound();
    }

    private static boolean loadsFromAnyPlace(Attempts attempts) {
        String chosen = System.getProperty("kelpbox.native");
        if (chosen != null) {
            return loads(chosen, "kelpbox.native: ", attempts);
        }
        if (loadsFromJar(attempts)) {
            return true;
        }
        String folders = System.getProperty("java.library.path", "");
        for (String folder : folders.split(File.pathSeparator)) {
            // As for the JVM, an empty entry is the current folder.
            String file = folder.isEmpty() ? FILE : folder + File.separator + FILE;
            if (loads(file, "java.library.path: ", attempts)) {
                return true;
            }
        }
        return false;
    }

    private static boolean loadsFromJar(Attempts attempts) {
        String resource = Platform.resource(FILE);
        String place = "the jar's " + resource + ": ";
        try (InputStream content = Loader.class.getResourceAsStream(resource)) {
            if (content == null) {
                attempts.failed(place + "not in the jar");
                return false;
            }
            try (UnpackedLibrary unpacked = UnpackedLibrary.unpack(content, FILE)) {
                return loads(unpacked.file(), place, attempts);
            }
        } catch (IOException | InvalidPathException e) {
            attempts.failed(place + Reasons.of(e));
            return false;
        }
    }

    private static boolean loads(String file, String place, Attempts attempts) {
        try {
            return loads(real(Path.of(file)), place, attempts);
        } catch (InvalidPathException e) {
            attempts.failed(place + Reasons.of(e));
            return false;
        }
    }

    /** Whether this file is now bound, whatever its version. */
    private static boolean loads(Path file, String place, Attempts attempts) {
        String reason = reasonNotToLoad(file);
        if (reason == null) {
            location = file;
            return true;
        }
        attempts.failed(place + file + ": " + reason);
        return false;
    }

    private static String reasonNotToLoad(Path file) {
        if (!Files.exists(file)) {
            return "no such file";
        }
        if (!Files.isRegularFile(file)) {
            return "not a file";
        }
        try {
            String problem = ElfFile.problem(file);
            if (problem != null) {
                return problem;
            }
            System.load(file.toString());
            return Binding.version() != null
                    ? null
                    : "a library, but not Kelpbox: it lacks Kelpbox's functions";
        } catch (IOException e) {
            return Reasons.of(e);
        } catch (UnsatisfiedLinkError | IllegalCallerException e) {
            return Reasons.of(e, file);
        }
    }

    /** The JVM cannot unload what is bound, so a library of another version stays an error. */
    private static void useWhatIsBound() {
        Binding.requireOneClassLoader();
        if (location == null) {
            location = Binding.loadedByHost();
        }
        String library = Binding.version();
        String jar = JarVersion.get();
        if (!library.equals(jar)) {
            throw new LibraryNotFoundException(loadedFile() + " has version " + library
                    + " and kelpbox.jar has version " + jar
                    + ". They must be equal. Start the JVM again with the right library:"
                    + " it cannot unload this one");
        }
        ready = true;
    }

    private static String loadedFile() {
        return location != null ? location.toString() : "a library that the host has loaded itself";
    }

    /** The path without symbolic links, where the file exists. */
    private static Path real(Path file) {
        try {
            return file.toRealPath();
        } catch (IOException e) {
            return file.toAbsolutePath();
        }
    }
}
