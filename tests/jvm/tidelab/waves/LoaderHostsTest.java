package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.ByteArrayOutputStream;
import java.net.URL;
import java.net.URLClassLoader;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import javax.tools.ToolProvider;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/** Hosts with threads, several class loaders, modules, or a library that they load themselves. */
class LoaderHostsTest {
    private static final String[] MODULE = {
            "module tidelab.host { requires tidelab.waves; }",
            "package tidelab.host;"
                    + " import tidelab.waves.Kelpbox;"
                    + " import tidelab.waves.component.WaveSynthesisException;"
                    + " import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;"
                    + " public final class Host { public static void main(String[] names) {"
                    + " Kelpbox.load();"
                    + " System.out.println(Kelpbox.class.getModule() + \" \" + Kelpbox.version());"
                    + " long tank = KelpboxNativeLibraryJNI.new_Kelpbox_Experiment__SWIG_0();"
                    + " try {"
                    + " KelpboxNativeLibraryJNI.Kelpbox_Experiment_initialise(tank, null, names[0]);"
                    + " } catch (WaveSynthesisException e) { System.out.println(\"failed\"); }"
                    + " } }",
    };

    @TempDir Path folder;

    private FreshJvm jvm() {
        return new FreshJvm(folder);
    }

    @Test
    void threadsLoadTheLibraryOnce() throws Exception {
        assertEquals(List.of("locations 1", "list []"), jvm().run("threads=8", "list=" + folder));
    }

    @Test
    void aLibraryThatTheHostHasLoadedIsUsed() throws Exception {
        Path library = FreshJvm.copyAs(FreshJvm.LIBRARY, folder.resolve("own")).toRealPath();
        Path other = FreshJvm.LIBRARY.toRealPath();
        List<String> lines = jvm().run("loadItself=" + library, "load", "loadFile=" + library,
                "vector", "loadFile=" + other);
        String loaded = "loaded " + library;
        String refused = String.format(
                "IllegalStateException: %s cannot be loaded: %s is loaded already", other, library);
        assertEquals(List.of(loaded, loaded, "vector 3", refused), lines);
    }

    @Test
    void eachClassLoaderHasACopyOfItsOwn() throws Exception {
        try (URLClassLoader one = loader(); URLClassLoader two = loader()) {
            assertNotEquals(location(one), location(two));
        }
    }

    @Test
    void aFileBelongsToOneClassLoader() throws Exception {
        Path library = FreshJvm.copyAs(FreshJvm.LIBRARY, folder.resolve("one")).toRealPath();
        try (URLClassLoader one = loader(); URLClassLoader two = loader()) {
            assertEquals("loaded", outcome(one, library));
            String refused = outcome(two, library);
            assertTrue(refused.contains(library.toString()), refused);
            assertTrue(refused.contains("a JVM binds a file to one class loader"), refused);
        }
    }

    private static URLClassLoader loader() throws Exception {
        URL[] jar = {FreshJvm.JAR.toUri().toURL()};
        return new URLClassLoader(jar, ClassLoader.getPlatformClassLoader());
    }

    private static Object location(ClassLoader loader) throws Exception {
        return loader.loadClass(Kelpbox.class.getName()).getMethod("location").invoke(null);
    }

    private static String outcome(ClassLoader loader, Path library) throws Exception {
        try {
            loader.loadClass(Kelpbox.class.getName())
                    .getMethod("load", Path.class)
                    .invoke(null, library);
            return "loaded";
        } catch (java.lang.reflect.InvocationTargetException e) {
            return e.getCause().getMessage();
        }
    }

    @Test
    void aModularHostLoadsTheLibrary() throws Exception {
        Path sources = Files.createDirectory(folder.resolve("sources"));
        Path module = Files.writeString(sources.resolve("module-info.java"), MODULE[0]);
        Path host = Files.writeString(sources.resolve("Host.java"), MODULE[1]);
        Path classes = folder.resolve("classes");
        ByteArrayOutputStream errors = new ByteArrayOutputStream();
        int result = ToolProvider.getSystemJavaCompiler().run(null, errors, errors, "-Xlint:all",
                "-Werror", "-d", classes.toString(), "-p", FreshJvm.JAR.toString(),
                module.toString(), host.toString());
        assertEquals(0, result, () -> errors.toString(StandardCharsets.UTF_8));
        List<String> lines = jvm().java(List.of("-Xcheck:jni", "-p", FreshJvm.JAR + ":" + classes,
                "-m", "tidelab.host/tidelab.host.Host", "missing.site"));
        assertEquals("module tidelab.waves " + FreshJvm.VERSION, lines.get(0));
        assertEquals("failed", lines.get(lines.size() - 1));
    }
}
