package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.File;
import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.TimeUnit;

/** A JVM of its own, because a JVM loads the library once. */
final class FreshJvm {
    static final Path JAR = Path.of(System.getProperty("kelpbox.jar"));
    static final Path LIBRARY = Path.of(System.getProperty("kelpbox.so"));
    static final String VERSION = System.getProperty("kelpbox.version");

    private static final String JAVA =
            Path.of(System.getProperty("java.home"), "bin", "java").toString();

    private final List<String> prefix = new ArrayList<>();
    private final List<String> options = new ArrayList<>();
    private final List<String> classPath = new ArrayList<>();

    /** The temporary files of this JVM are in the folder, and nothing is on its library path. */
    FreshJvm(Path folder) {
        options.add("-Djava.io.tmpdir=" + folder);
        options.add("-Djava.library.path=" + folder.resolve("none"));
        options.add("-Dkelpbox.jar=" + JAR);
        options.add("-Dkelpbox.so=" + LIBRARY);
        options.add("-XX:TieredStopAtLevel=1");
        options.add("-XX:-UsePerfData");
        allowNativeAccess("ALL-UNNAMED");
        classPath.add(JAR.toString());
        classPath.add(System.getProperty("kelpbox.tests"));
    }

    static Path fake(String name) {
        Path file = Path.of(System.getProperty("kelpbox.fakes"), name + ".so");
        assertTrue(Files.isRegularFile(file), file::toString);
        return file;
    }

    /** The library has the name that the loader looks for. */
    static Path copyAs(Path library, Path folder) throws IOException {
        Files.createDirectories(folder);
        return Files.copy(library, folder.resolve("libKelpboxSwig.so"));
    }

    /** Newer JVMs warn without this option. */
    FreshJvm allowNativeAccess(String module) {
        if (Runtime.version().feature() >= 24) {
            options.add("--enable-native-access=" + module);
        }
        return this;
    }

    FreshJvm with(String name, Object value) {
        options.add("-D" + name + "=" + value);
        return this;
    }

    /** Puts this folder before the jar, so that its resources replace those of the jar. */
    FreshJvm withFirst(Path folder) {
        classPath.add(0, folder.toString());
        return this;
    }

    /** Runs the JVM as the arguments of this command. */
    FreshJvm under(String... command) {
        prefix.addAll(List.of(command));
        return this;
    }

    /** The lines that {@link LoadingHost} writes. */
    List<String> run(String... steps) throws IOException, InterruptedException {
        List<String> command = new ArrayList<>(List.of("-Xcheck:jni", "-cp"));
        command.add(String.join(File.pathSeparator, classPath));
        command.add(LoadingHost.class.getName());
        command.addAll(List.of(steps));
        return java(command);
    }

    /** The lines that {@code java} with these arguments writes. */
    List<String> java(List<String> arguments) throws IOException, InterruptedException {
        List<String> command = new ArrayList<>(prefix);
        command.add(JAVA);
        command.addAll(options);
        command.addAll(arguments);
        Path log = Files.createTempFile("jvm", ".log");
        try {
            Process process = new ProcessBuilder(command)
                                      .redirectErrorStream(true)
                                      .redirectOutput(log.toFile())
                                      .start();
            boolean ended = process.waitFor(100, TimeUnit.SECONDS);
            process.destroyForcibly();
            String output = Files.readString(log, StandardCharsets.UTF_8);
            assertTrue(ended, output);
            assertEquals(0, process.exitValue(), output);
            assertFalse(output.contains("WARNING"), output);
            return output.lines().toList();
        } finally {
            Files.delete(log);
        }
    }
}
