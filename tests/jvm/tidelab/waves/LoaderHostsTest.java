package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.ByteArrayOutputStream;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.Set;
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
        List<String> lines = jvm().run("load", "loader", "loader", "vector");
        assertEquals("vector 3", lines.get(3));
        assertEquals(3, Set.copyOf(lines.subList(0, 3)).size(), lines::toString);
        for (String line : lines.subList(0, 3)) {
            assertTrue(line.startsWith("loaded " + folder + "/kelpbox-"), line);
        }
    }

    @Test
    void aFileBelongsToOneClassLoader() throws Exception {
        String library = FreshJvm.LIBRARY.toRealPath().toString();
        List<String> lines = jvm().run("loadFile=" + library, "loader=" + library, "vector");
        assertEquals("loaded " + library, lines.get(0));
        assertTrue(lines.get(2).contains(library), lines::toString);
        assertTrue(
                lines.get(2).contains("a JVM binds a file to one class loader"), lines::toString);
        assertEquals("vector 3", lines.get(3));
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
        List<String> lines =
                jvm().allowNativeAccess("tidelab.waves")
                        .java(List.of("-Xcheck:jni", "-p", FreshJvm.JAR + ":" + classes, "-m",
                                "tidelab.host/tidelab.host.Host", "missing.site"));
        assertEquals("module tidelab.waves " + FreshJvm.VERSION, lines.get(0));
        assertEquals("failed", lines.get(lines.size() - 1));
    }
}
