package tidelab.waves;

import java.io.IOException;
import java.io.InputStream;
import java.nio.file.FileSystemException;
import java.nio.file.Files;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.nio.file.attribute.PosixFilePermission;
import java.nio.file.attribute.PosixFilePermissions;
import java.util.Set;

/**
 * A copy of the library from the jar, in a folder of its own that only this user can enter. Nobody
 * else can replace the file between its creation and its use. Closed as soon as the file is loaded:
 * Linux keeps the content of a mapped file after its name is deleted.
 */
final class UnpackedLibrary implements AutoCloseable {
    private static final Set<PosixFilePermission> PRIVATE =
            PosixFilePermissions.fromString("rwx------");

    private final Path folder;
    private final Path file;

    private UnpackedLibrary(Path folder, String name) {
        this.folder = folder;
        this.file = folder.resolve(name);
    }

    static UnpackedLibrary unpack(InputStream content, String name) throws IOException {
        String chosen = System.getProperty("kelpbox.folder");
        Path parent = Path.of(chosen != null ? chosen : System.getProperty("java.io.tmpdir"));
        UnpackedLibrary unpacked = new UnpackedLibrary(newFolder(parent), name);
        try {
            unpacked.fill(content);
            unpacked.requirePrivate();
            return unpacked;
        } catch (Throwable e) {
            unpacked.close();
            throw e;
        }
    }

    private void fill(InputStream content) throws IOException {
        try {
            Files.copy(content, file); // fails if the file exists
        } catch (FileSystemException e) {
            throw e;
        } catch (IOException e) { // a full disk, which is reported without the file
            throw new FileSystemException(file.toString(), null, e.getMessage());
        }
    }

    private static Path newFolder(Path parent) throws IOException {
        try {
            return Files.createTempDirectory(
                    parent.toRealPath(), "kelpbox-", PosixFilePermissions.asFileAttribute(PRIVATE));
        } catch (UnsupportedOperationException e) {
            throw new FileSystemException(
                    parent.toString(), null, "the file system has no owners and permissions");
        }
    }

    // Some file systems, such as FAT, ignore the permissions that they are given.
    private void requirePrivate() throws IOException {
        Set<PosixFilePermission> permissions =
                Files.getPosixFilePermissions(folder, LinkOption.NOFOLLOW_LINKS);
        if (!permissions.equals(PRIVATE)) {
            throw new FileSystemException(folder.toString(), null,
                    "permissions are " + PosixFilePermissions.toString(permissions)
                            + " instead of rwx------");
        }
        if (!Files.getOwner(folder, LinkOption.NOFOLLOW_LINKS).equals(Files.getOwner(file))) {
            throw new FileSystemException(folder.toString(), null, "belongs to another user");
        }
    }

    Path file() {
        return file;
    }

    @Override
    public void close() {
        try {
            Files.deleteIfExists(file);
            Files.delete(folder);
        } catch (IOException e) {
            // Network file systems keep deleted files that are in use. The JVM deletes in reverse.
            folder.toFile().deleteOnExit();
            file.toFile().deleteOnExit();
        }
    }
}
