package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import tidelab.waves.component.WaveSynthesisException;

/**
 * Characters above U+FFFF on their way to the library and back. Java and the library have different
 * forms of them, and so has the virtual machine.
 */
class CharactersTest {
    private static final String WAVE = "\uD83C\uDF0A";

    private static String named(String script, String name) {
        return script.replace('"' + name + '"', '"' + name + WAVE + '"');
    }

    @Test
    void namesOfTheSiteAreThoseOfItsScript(@TempDir Path folder) throws IOException {
        String script = named(named(named(Tanks.SCRIPT, "Test"), "Flume"), "west");
        Path site = Files.writeString(folder.resolve("flume" + WAVE + ".site"), script);
        try (Experiment experiment = Experiment.builder().silent().open(site)) {
            assertEquals("Flume" + WAVE + " piston", experiment.siteName());
            String text = experiment.siteText();
            String names = "Test" + WAVE + "::Flume" + WAVE + "::piston#0x";
            assertTrue(text.startsWith(names), text);
            assertEquals("west" + WAVE, experiment.bank(0).name());
        }
    }

    @Test
    void aFileThatDoesNotExistIsNamed() {
        Path missing = Path.of("no" + WAVE + ".site");
        fails(WaveSynthesisException.class, "File \"" + missing + "\" does not exist",
                () -> Experiment.builder().silent().open(missing));
    }

    @Test
    void messagesNameASpectrum() {
        try (Experiment experiment = Tanks.flume()) {
            Definition definition = Tanks.definition(experiment, "run");
            Tanks.place(definition).addSpectrum("sea" + WAVE, "0.2@Hz#0.001@m2s#2@Hz");
            fails(WaveSynthesisException.class, "sea" + WAVE + "::evaluate::when not ready",
                    definition::build);
        }
    }

    @Test
    void linesOfOutputNameATimeSeries() {
        List<String> lines = new ArrayList<>();
        try (Experiment experiment = Experiment.builder().output(lines::add).open(Tanks.FLUME)) {
            Definition definition = Tanks.definition(experiment, "run");
            Tanks.place(definition)
                    .addTimeExpression("pulse" + WAVE, "0@s#0.1*sin($[s])@m#9@s")
                    .set("rate", "20 Hz");
            definition.build();
        }
        String start = "Time series \"pulse" + WAVE + "\" has max rate of ";
        assertTrue(lines.stream().anyMatch(line -> line.startsWith(start)), lines::toString);
    }

    // Names in formulas have letters and digits only; the library ignores all other characters.
    @Test
    void aFormulaThatIsNoneIsNamed() {
        String formula = "hs[m]+" + WAVE;
        fails(WaveSynthesisException.class, "Error while parsing expression ::" + formula,
                () -> Experiment.formulaParameters("1@Hz#" + formula));
    }

    @Test
    void parametersOfAnyNameAreWrittenBack() {
        try (Experiment experiment = Tanks.flume()) {
            Run run = Tanks.wave(experiment, 0.5, 0.02, 0).build();
            PointWave point = run.point("rate", "50 Hz", "x", "1 m", "y", "0 m", "delta_angle",
                    "0.5 rad", "note" + WAVE, 7);
            assertEquals(7.0, point.settings().get("note" + WAVE, ""));
        }
    }

    @Test
    void unitsThatDoNotExistAreNamed() {
        fails(WaveSynthesisException.class, "Unknown units - m" + WAVE,
                () -> Quantity.of(1, "m" + WAVE));
    }
}
