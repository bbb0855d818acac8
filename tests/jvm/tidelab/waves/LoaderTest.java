package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;

/** Where the library is loaded from. */
class LoaderTest {
    @TempDir Path folder;

    private static final String RESOURCE_FOLDER =
            "native/linux-" + System.getProperty("os.arch").replace("amd64", "x86_64");

    private Path temporary;

    @BeforeEach
    void makeTemporaryFolder() throws Exception {
        temporary = Files.createDirectory(folder.resolve("temporary"));
    }

    private FreshJvm jvm() {
        return new FreshJvm(temporary);
    }

    private Path libraryPath() throws Exception {
        return FreshJvm.copyAs(FreshJvm.LIBRARY, folder.resolve("libraries"));
    }

    /** A folder whose resource replaces the copy in the jar. */
    private Path replacement(String fake) throws Exception {
        Path classes = folder.resolve("classes");
        FreshJvm.copyAs(FreshJvm.fake(fake), classes.resolve(RESOURCE_FOLDER));
        return classes;
    }

    @Test
    void theCopyInTheJarComesFirst() throws Exception {
        List<String> lines = jvm().with("java.library.path", libraryPath().getParent())
                                     .run("load", "version", "vector");
        assertTrue(
                lines.get(0).matches("loaded " + temporary + "/kelpbox-[0-9]+/libKelpboxSwig\\.so"),
                lines::toString);
        assertEquals(List.of("version " + FreshJvm.VERSION, "vector 3"), lines.subList(1, 3));
    }

    @Test
    void theFolderOfTheCopyCanBeChosen() throws Exception {
        Path chosen = Files.createDirectory(folder.resolve("chosen"));
        List<String> lines = jvm().with("kelpbox.folder", chosen).run("load");
        assertTrue(lines.get(0).startsWith("loaded " + chosen + "/kelpbox-"), lines::toString);
    }

    @Test
    void theCopyIsGoneAsSoonAsItIsLoaded() throws Exception {
        List<String> lines = jvm().run("load", "list=" + temporary, "vector");
        assertEquals(List.of("list []", "vector 3"), lines.subList(1, 3));
    }

    @Test
    void aCopyThatDoesNotLoadIsGoneToo() throws Exception {
        List<String> lines =
                jvm().withFirst(replacement("dependent")).run("load", "list=" + temporary);
        assertTrue(lines.get(1).contains("libkelpbox_absent.so"), lines::toString);
        assertEquals("list []", lines.get(lines.size() - 1));
    }

    @Test
    void onlyTheOwnerCanEnterTheFolderOfTheCopy() throws Exception {
        List<String> lines = jvm().withFirst(replacement("observer")).run("load");
        assertEquals("folder 700, own 1", lines.get(0));
        assertTrue(lines.get(1).startsWith("loaded "), lines::toString);
    }

    @Test
    void theLibraryPathIsUsedIfTheCopyCannotBeUnpacked() throws Exception {
        Path library = libraryPath();
        List<String> lines = jvm().with("kelpbox.folder", folder.resolve("missing"))
                                     .with("java.library.path", folder + ":" + library.getParent())
                                     .run("load", "vector");
        assertEquals(List.of("loaded " + library.toRealPath(), "vector 3"), lines);
    }

    @Test
    void thePropertyNamesTheOnlyFileThatIsTried() throws Exception {
        Path missing = folder.resolve("missing.so");
        List<String> lines = jvm().with("java.library.path", libraryPath().getParent())
                                     .with("kelpbox.native", missing)
                                     .run("load");
        assertEquals(List.of("LibraryNotFoundException: Kelpbox's native library cannot be loaded:",
                             "  kelpbox.native: " + missing + ": no such file"),
                lines);
    }

    @Test
    void aFailedLoadCanBeRepeated() throws Exception {
        Path library = libraryPath();
        List<String> lines =
                jvm().with("kelpbox.native", folder.resolve("missing.so"))
                        .run("load", "set=kelpbox.native=" + library, "load", "vector");
        assertEquals(List.of("loaded " + library.toRealPath(), "vector 3"), lines.subList(2, 4));
    }

    @Test
    void theLibraryPathIsReadWhenTheLibraryIsLoaded() throws Exception {
        Path library = libraryPath();
        List<String> lines = jvm().with("kelpbox.folder", folder.resolve("missing"))
                                     .run("set=java.library.path=" + library.getParent(), "load");
        assertEquals(List.of("loaded " + library.toRealPath()), lines);
    }

    @Test
    void aFileIsLoadedAgainButNoOther() throws Exception {
        Path library = libraryPath();
        Path link = Files.createSymbolicLink(folder.resolve("link.so"), library);
        Path other = FreshJvm.copyAs(FreshJvm.LIBRARY, folder.resolve("other"));
        List<String> lines =
                jvm().run("loadFile=" + library, "load", "loadFile=" + link, "loadFile=" + other);
        String loaded = "loaded " + library.toRealPath();
        String refused =
                String.format("IllegalStateException: %s cannot be loaded: %s is loaded already",
                        other.toRealPath(), library.toRealPath());
        assertEquals(List.of(loaded, loaded, loaded, refused), lines);
    }

    @Test
    void aRelativePathStartsAtTheCurrentFolder() throws Exception {
        Path library = libraryPath().toRealPath();
        Path relative = Path.of("").toAbsolutePath().relativize(library);
        assertEquals(List.of("loaded " + library), jvm().run("loadFile=" + relative));
    }

    @Test
    void anInterruptedThreadLoadsAndStaysInterrupted() throws Exception {
        List<String> lines = jvm().run("interrupt", "load", "interrupted");
        assertTrue(lines.get(0).startsWith("loaded "), lines::toString);
        assertEquals("interrupted true", lines.get(1));
    }
}
