package tidelab.waves;

import java.util.Locale;

/** The operating system and processor of this JVM. */
final class Platform {
    private Platform() {}

    static String processor() {
        String name = System.getProperty("os.arch", "");
        return name.equals("amd64") ? "x86_64" : name;
    }

    /** Where the jar holds the library for this JVM. */
    static String resource(String file) {
        String system = System.getProperty("os.name", "").toLowerCase(Locale.ROOT);
        return "/native/" + system.replace(' ', '_') + "-" + processor() + "/" + file;
    }
}
