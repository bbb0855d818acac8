package tidelab.waves;

/**
 * No usable native library was found. The message lists each place that was tried and why it
 * failed: no such file, a library that it needs is missing, a file system without execution of
 * programs, another architecture, another version.
 *
 * <pre>{@code
 * try {
 *     Kelpbox.load();
 * } catch (LibraryNotFoundException e) {
 *     System.err.println(e.getMessage());
 * }
 * }</pre>
 */
public class LibraryNotFoundException extends IllegalStateException {
    private static final long serialVersionUID = 1L;

    LibraryNotFoundException(String message) {
        super(message);
    }
}
