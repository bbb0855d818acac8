package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;

import java.io.BufferedReader;
import java.io.InputStreamReader;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.TreeSet;
import org.junit.jupiter.api.Test;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/** The native declarations and the symbols of the library are the same set. */
class DeclarationsTest {
    private static final String PREFIX =
            "Java_tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI_";

    private static TreeSet<String> declared() {
        TreeSet<String> names = new TreeSet<>();
        for (Method method : KelpboxNativeLibraryJNI.class.getDeclaredMethods()) {
            if (Modifier.isNative(method.getModifiers())) {
                names.add(PREFIX + method.getName().replace("_", "_1"));
            }
        }
        return names;
    }

    private static TreeSet<String> exported() throws Exception {
        Process nm =
                new ProcessBuilder("nm", "-D", "--defined-only", System.getProperty("kelpbox.so"))
                        .redirectError(ProcessBuilder.Redirect.INHERIT)
                        .start();
        TreeSet<String> names = new TreeSet<>();
        try (BufferedReader reader =
                        new BufferedReader(new InputStreamReader(nm.getInputStream()))) {
            for (String line; (line = reader.readLine()) != null;) {
                String[] fields = line.trim().split("\\s+");
                if (!fields[fields.length - 2].equals("A")) { // the name of the symbol version
                    names.add(fields[fields.length - 1].replaceAll("@.*", ""));
                }
            }
        }
        assertEquals(0, nm.waitFor());
        return names;
    }

    @Test
    void everyDeclarationIsExported() throws Exception {
        TreeSet<String> missing = declared();
        assertFalse(missing.isEmpty());
        missing.removeAll(exported());
        assertEquals(new TreeSet<String>(), missing);
    }

    @Test
    void everySymbolIsDeclared() throws Exception {
        TreeSet<String> undeclared = exported();
        assertFalse(undeclared.isEmpty());
        undeclared.removeAll(declared());
        assertEquals(new TreeSet<String>(), undeclared);
    }

    @Test
    void noNameIsOverloaded() {
        // The names of overloads contain their signatures.
        long methods = 0;
        for (Method method : KelpboxNativeLibraryJNI.class.getDeclaredMethods()) {
            methods += Modifier.isNative(method.getModifiers()) ? 1 : 0;
        }
        assertEquals(methods, declared().size());
    }
}
