package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;

import java.io.BufferedReader;
import java.io.InputStreamReader;
import java.lang.reflect.Method;
import java.lang.reflect.Modifier;
import java.util.List;
import java.util.TreeSet;
import org.junit.jupiter.api.Test;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/** The native declarations of both classes and the symbols of the library are the same set. */
class DeclarationsTest {
    private static List<Class<?>> classes() throws Exception {
        return List.of(KelpboxNativeLibraryJNI.class, Class.forName("tidelab.waves.Native"));
    }

    private static TreeSet<String> declared(Class<?> declaring) {
        String prefix = "Java_" + declaring.getName().replace('.', '_') + "_";
        TreeSet<String> names = new TreeSet<>();
        for (Method method : declaring.getDeclaredMethods()) {
            if (Modifier.isNative(method.getModifiers())) {
                names.add(prefix + method.getName().replace("_", "_1"));
            }
        }
        return names;
    }

    private static TreeSet<String> declared() throws Exception {
        TreeSet<String> names = new TreeSet<>();
        for (Class<?> declaring : classes()) {
            names.addAll(declared(declaring));
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
    void noNameIsOverloaded() throws Exception {
        // The names of overloads contain their signatures.
        for (Class<?> declaring : classes()) {
            long methods = 0;
            for (Method method : declaring.getDeclaredMethods()) {
                methods += Modifier.isNative(method.getModifiers()) ? 1 : 0;
            }
            assertEquals(methods, declared(declaring).size());
        }
    }
}
