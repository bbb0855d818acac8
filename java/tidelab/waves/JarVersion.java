package tidelab.waves;

import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.StandardCharsets;

/** The version of the jar, which the build puts beside this class. */
final class JarVersion {
    private static final String RESOURCE = "version.txt";

    private JarVersion() {}

    static String get() {
        try (InputStream content = JarVersion.class.getResourceAsStream(RESOURCE)) {
            if (content == null) {
                throw new IllegalStateException(
                        "kelpbox.jar is incomplete: tidelab/waves/" + RESOURCE + " is missing");
            }
            return new String(content.readAllBytes(), StandardCharsets.UTF_8).strip();
        } catch (IOException e) {
            throw new IllegalStateException("kelpbox.jar cannot be read: " + e.getMessage(), e);
        }
    }
}
