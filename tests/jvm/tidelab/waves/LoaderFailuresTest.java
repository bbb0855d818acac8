package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static org.junit.jupiter.api.Assumptions.assumeTrue;

import java.nio.file.FileSystem;
import java.nio.file.FileSystems;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/** Why a library is refused, and what the exception says about it. */
class LoaderFailuresTest {
    private static final int MACHINE = 18; // the offset of the processor in an ELF header
    private static final byte X86_64 = 62;
    private static final byte AARCH64 = (byte) 183;

    @TempDir Path folder;

    private FreshJvm jvm() {
        return new FreshJvm(folder);
    }

    /** The reason why this file is refused. */
    private String reason(Path file) throws Exception {
        List<String> lines = jvm().run("loadFile=" + file);
        assertEquals("LibraryNotFoundException: Kelpbox's native library cannot be loaded:",
                lines.get(0));
        String place = "  " + file.toRealPath() + ": ";
        assertTrue(lines.get(1).startsWith(place), lines::toString);
        assertEquals(2, lines.size(), lines::toString);
        return lines.get(1).substring(place.length());
    }

    private static String otherVersion(Path file, String version) throws Exception {
        return "LibraryNotFoundException: " + file.toRealPath() + " has version " + version
                + " and kelpbox.jar has version " + FreshJvm.VERSION + ".";
    }

    @Test
    void eachPlaceIsListed() throws Exception {
        Path missing = folder.resolve("missing");
        Path empty = Files.createDirectory(folder.resolve("empty"));
        List<String> lines = jvm().with("kelpbox.folder", missing)
                                     .with("java.library.path", empty + ":" + missing)
                                     .run("load");
        String library = "/libKelpboxSwig.so: no such file";
        assertTrue(
                lines.get(1).endsWith("libKelpboxSwig.so: " + missing + ": no such file or folder"),
                lines::toString);
        assertEquals(List.of("  java.library.path: " + empty + library,
                             "  java.library.path: " + missing + library),
                lines.subList(2, lines.size()));
    }

    @Test
    void anotherVersionIsRefusedUntilTheJvmStartsAgain() throws Exception {
        Path other = FreshJvm.fake("other_version");
        List<String> lines = jvm().with("kelpbox.native", other)
                                     .run("load", "clear=kelpbox.native", "load", "version",
                                             "loadFile=" + FreshJvm.LIBRARY);
        String refused = otherVersion(other, "9.9.9");
        assertEquals(4, lines.size(), lines::toString);
        for (String line : lines) {
            assertTrue(line.startsWith(refused), line);
        }
    }

    @Test
    void aLibraryThatReportsNoVersionIsRefused() throws Exception {
        Path older = FreshJvm.fake("without_version");
        List<String> lines = jvm().run("loadFile=" + older);
        assertTrue(lines.get(0).startsWith(otherVersion(older, "unknown")), lines::toString);
    }

    @Test
    void aFileThatIsNoLibraryIsRefused() throws Exception {
        Path text = Files.writeString(folder.resolve("text.so"), "wave ".repeat(1000));
        assertEquals("not a library", reason(text));
        assertEquals("not a library", reason(Files.createFile(folder.resolve("empty.so"))));
    }

    @Test
    void aFileInsideAnArchiveIsRefused() throws Exception {
        try (FileSystem jar = FileSystems.newFileSystem(FreshJvm.JAR)) {
            Path inside = jar.getPath("module-info.class");
            assertThrows(IllegalArgumentException.class, () -> Kelpbox.load(inside));
        }
        assertThrows(NullPointerException.class, () -> Kelpbox.load(null));
    }

    @Test
    void aFolderIsRefused() throws Exception {
        assertEquals("not a file", reason(folder));
    }

    @Test
    void anotherLibraryIsRefusedAndTheRightOneLoadsAfterIt() throws Exception {
        Path unrelated = FreshJvm.fake("unrelated");
        assertEquals("a library, but not Kelpbox: it lacks Kelpbox's functions", reason(unrelated));
        List<String> lines = jvm().run("loadFile=" + unrelated, "load", "vector");
        assertTrue(lines.get(2).startsWith("loaded "), lines::toString);
        assertEquals("vector 3", lines.get(3));
    }

    @Test
    void aMissingDependencyIsNamed() throws Exception {
        assertEquals(
                "libkelpbox_absent.so: cannot open shared object file: No such file or directory"
                        + " (install this library, which Kelpbox needs)",
                reason(FreshJvm.fake("dependent")));
    }

    @Test
    void anotherProcessorIsNamed() throws Exception {
        byte[] library = Files.readAllBytes(FreshJvm.LIBRARY);
        boolean here = library[MACHINE] == X86_64;
        library[MACHINE] = here ? AARCH64 : X86_64;
        String reason = reason(Files.write(folder.resolve("other.so"), library));
        String there = here ? "aarch64" : "x86_64";
        assertTrue(reason.startsWith("for the processor " + there + ", but"), reason);
    }

    // The linker would map pages that the file does not have, and the JVM would end.
    @Test
    void aTruncatedLibraryIsRefused() throws Exception {
        byte[] library = Files.readAllBytes(FreshJvm.fake("other_version"));
        for (int size : new int[] {64, 100, 5000}) {
            Path file = folder.resolve("short" + size + ".so");
            Files.write(file, Arrays.copyOf(library, size));
            String reason = reason(file);
            assertTrue(reason.startsWith("truncated to " + size + " of at least "), reason);
        }
    }

    @Test
    void aFileIsNoFolderForTheCopy() throws Exception {
        Path file = Files.createFile(folder.resolve("file"));
        List<String> lines = jvm().with("kelpbox.folder", file).run("load");
        assertTrue(lines.get(1).contains(": " + file + "/kelpbox-"), lines::toString);
        assertTrue(lines.get(1).endsWith(": Not a directory"), lines::toString);
    }

    @Test
    void aFileSystemWithoutProgramsIsNamed() throws Exception {
        Path mounted = Files.createDirectory(folder.resolve("mounted"));
        String mount = "mount -t tmpfs -o noexec tmpfs " + mounted;
        Process trial = new ProcessBuilder("unshare", "-rm", "sh", "-c", mount)
                                .redirectErrorStream(true)
                                .start();
        assumeTrue(trial.waitFor() == 0, "no file system can be mounted here");
        List<String> lines =
                jvm().under("unshare", "-rm", "sh", "-c", mount + " && exec \"$@\"", "sh")
                        .with("kelpbox.folder", mounted)
                        .run("load", "list=" + mounted);
        assertTrue(lines.get(1).contains("noexec"), lines::toString);
        assertTrue(lines.get(1).contains(mounted + "/kelpbox-"), lines::toString);
        assertEquals("list []", lines.get(lines.size() - 1));
    }
}
