package tidelab.waves;

import java.util.Locale;

/** Where the jar holds the library for the operating system and processor of this JVM. */
final class Platform {
    private Platform() {}

    static String resource(String file) {
        String system = System.getProperty("os.name", "").toLowerCase(Locale.ROOT);
        String processor = System.getProperty("os.arch", "");
        if (processor.equals("amd64")) {
            processor = "x86_64";
        }
        return "/native/" + system.replace(' ', '_') + "-" + processor + "/" + file;
    }
}
