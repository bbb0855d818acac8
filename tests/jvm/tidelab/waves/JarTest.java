package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.InputStream;
import java.lang.module.ModuleDescriptor;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Properties;
import java.util.Set;
import java.util.jar.JarFile;
import java.util.stream.Collectors;
import org.junit.jupiter.api.Test;

/** The contents of the jars, and their places in a Maven repository. */
class JarTest {
    private static final String EXCEPTION = "tidelab/waves/component/WaveSynthesisException";

    private static Path repository(String suffix) {
        return Path.of(System.getProperty("kelpbox.maven"), "tidelab/kelpbox", FreshJvm.VERSION,
                "kelpbox-" + FreshJvm.VERSION + suffix);
    }

    private static Set<String> entries(Path jar) throws Exception {
        try (JarFile file = new JarFile(jar.toFile())) {
            return file.stream().map(entry -> entry.getName()).collect(Collectors.toSet());
        }
    }

    private static InputStream entry(JarFile jar, String name) throws Exception {
        return jar.getInputStream(jar.getEntry(name));
    }

    @Test
    void theModuleExportsTheInterfaceOnly() throws Exception {
        try (JarFile jar = new JarFile(FreshJvm.JAR.toFile())) {
            ModuleDescriptor module = ModuleDescriptor.read(entry(jar, "module-info.class"));
            assertEquals("tidelab.waves@" + FreshJvm.VERSION, module.toNameAndVersion());
            assertEquals(Set.of("tidelab.waves", "tidelab.waves.component",
                                 "tidelab.KelpboxNativeLibrary"),
                    module.exports()
                            .stream()
                            .map(ModuleDescriptor.Exports::source)
                            .collect(Collectors.toSet()));
        }
    }

    @Test
    void theJarNamesItsMavenCoordinates() throws Exception {
        try (JarFile jar = new JarFile(FreshJvm.JAR.toFile())) {
            Properties properties = new Properties();
            properties.load(entry(jar, "META-INF/maven/tidelab/kelpbox/pom.properties"));
            assertEquals("tidelab:kelpbox:" + FreshJvm.VERSION,
                    properties.get("groupId") + ":" + properties.get("artifactId") + ":"
                            + properties.get("version"));
            assertArrayEquals(Files.readAllBytes(repository(".pom")),
                    entry(jar, "META-INF/maven/tidelab/kelpbox/pom.xml").readAllBytes());
        }
    }

    @Test
    void theRepositoryHasTheJarItsSourcesAndItsPages() throws Exception {
        assertEquals(-1, Files.mismatch(FreshJvm.JAR, repository(".jar")));
        Set<String> sources = entries(repository("-sources.jar"));
        for (String name : entries(FreshJvm.JAR)) {
            if (name.endsWith(".class") && !name.contains("$")) {
                String source = name.replace(".class", ".java");
                assertTrue(sources.contains(source), source);
            }
        }
        assertTrue(entries(FreshJvm.JAR).contains(EXCEPTION + ".class"));
        assertTrue(entries(repository("-javadoc.jar"))
                           .contains("tidelab.waves/" + EXCEPTION + ".html"));
    }
}
