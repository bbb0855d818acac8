package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.net.URI;
import java.nio.file.FileSystems;
import java.nio.file.Path;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import tidelab.waves.component.WaveSynthesisException;

/** Opening a site, reading and tuning it, and the items of an experiment. */
class ExperimentTest {
    private Experiment experiment;

    @BeforeEach
    void open() {
        experiment = Tanks.flume();
    }

    @AfterEach
    void close() {
        experiment.close();
    }

    @Test
    void theSiteDescribesItself() {
        assertEquals("Flume piston", experiment.siteName());
        assertTrue(experiment.siteText().matches("Test::Flume::piston#0x[0-9a-f]+"));
        Settings constants = experiment.constants();
        assertEquals(20.0, constants.get("max_x", "m"));
        assertEquals(2.0, constants.get("max_freq", "Hz"));
        assertSame(Geometry.TwoDimensional, constants.choice("geometry"));
        assertArrayEquals(
                new double[] {1, 1, 1, 1, 1}, experiment.profile(Settings.of("delta_x", "5 m")));
        assertArrayEquals(new double[] {1, 1, 1}, experiment.profile("delta_x", "10 m"));
    }

    @Test
    void theBanksAreThoseOfTheSite() {
        assertEquals(1, experiment.banks().size());
        Bank bank = experiment.bank(0);
        assertEquals(0, bank.index());
        assertEquals("west", bank.name());
        assertEquals("m", bank.dataUnits());
        assertEquals("m", bank.signalUnits());
        assertEquals(1, bank.size());
        assertEquals(List.of(new Paddle(1, 0, 0, 0)), bank.paddles());
        assertEquals(
                List.of("clip_paddle_motion", "gain", "max_paddle_motion", "min_paddle_motion"),
                bank.limits().names());
        assertEquals(0.3, bank.limits().get("clip_paddle_motion", "m"));
        assertEquals(Quantity.of(2.5, "V"), bank.limits().quantity("gain"));
    }

    @Test
    void theSignalsOfAFlapAreInRadiansWhateverUnitsItsLimitsHave() {
        String flap = Tanks.SCRIPT.replace("piston {", "flap {")
                              .replace("minimum = -0.4; units = \"m\"",
                                      "minimum = -0.4; units = \"deg\"");
        try (Experiment flume = Experiment.builder().silent().open(Tanks.file(flap))) {
            assertEquals("deg", flume.bank(0).dataUnits());
            assertEquals("rad", flume.bank(0).signalUnits());
        }
    }

    @Test
    void aBankThatDoesNotExistIsNamed() {
        String message = " does not exist: they count from 0 to 0";
        for (int index : new int[] {1, -1, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            fails(IndexOutOfBoundsException.class, "bank " + index + message,
                    () -> experiment.bank(index));
        }
    }

    @Test
    void aTunableValueIsSetInAnyUnits() {
        assertEquals(Quantity.of("50 cm"), experiment.set("beach", "50 cm").quantity("beach"));
        assertEquals(0.5, experiment.settings().get("beach", "m"), 1e-15);
    }

    @Test
    void aNameThatTheSiteDoesNotHaveIsReportedWithTheNearest() {
        fails(IllegalArgumentException.class,
                "\"bech\" is not a setting of experiment \"flume\"; did you mean \"beach\"? It has:"
                        + " beach",
                () -> experiment.set("bech", "50 cm"));
    }

    @Test
    void aRefusedValueLeavesTheSiteAsItWas() {
        Path site = Tanks.file(Tanks.SCRIPT.replace("param[1..1] {",
                "param[2..1] { name = \"delay\"; value = 3; max = 9; min = 0; error = 1;"
                        + " units = \"s\"; } param[1] {"));
        try (Experiment two = Experiment.builder().silent().open(site)) {
            Run run = Tanks.wave(two, 0.7, 0.04, 0).build();
            // "beach" comes first and is stored before "delay" is refused.
            assertThrows(
                    WaveSynthesisException.class, () -> two.set("beach", "0.75 m", "delay", "1 m"));
            assertEquals(0.25, two.settings().get("beach", "m"));
            assertEquals(3.0, two.settings().get("delay", "s"));
            assertEquals(500, run.paddleMotion("50 Hz").signal(0, 0).length);
        }
    }

    @Test
    void afterAFailedOpenNothingStaysBehind() {
        int before = Tanks.live();
        Path missing = Path.of("no such folder", "basin.site");
        fails(WaveSynthesisException.class, "File \"" + missing + "\" does not exist",
                () -> Experiment.open(missing));
        for (String broken : new String[] {
                     "context {", Tanks.SCRIPT.replace("depth = \"1.0\"", "depth = \"1-$[m]\"")}) {
            Path site = Tanks.file(broken);
            assertThrows(
                    WaveSynthesisException.class, () -> Experiment.builder().silent().open(site));
        }
        assertEquals(before, Tanks.live());
    }

    @Test
    void aPathThatIsNoFileOfTheMachineIsRefused() {
        Path module = FileSystems.getFileSystem(URI.create("jrt:/")).getPath("/modules");
        fails(IllegalArgumentException.class, "\"/modules\" is not a file of this machine",
                () -> Experiment.open(module));
        fails(NullPointerException.class, "site", () -> Experiment.open(null));
    }

    @Test
    void aSiteInAFolderWithAnyCharactersIsRead() throws Exception {
        Path folder = java.nio.file.Files.createTempDirectory("b\u00e4sin \uD83C\uDF0A");
        Path site = java.nio.file.Files.writeString(folder.resolve("x.site"), Tanks.SCRIPT);
        try (Experiment opened = Experiment.builder().silent().open(site)) {
            assertEquals("Flume piston", opened.siteName());
        } finally {
            java.nio.file.Files.delete(site);
            java.nio.file.Files.delete(folder);
        }
    }

    @Test
    void theBuilderChecksItsValues() {
        fails(IllegalArgumentException.class, "workers: 0 is less than 1",
                () -> Experiment.builder().workers(0));
        fails(NullPointerException.class, "name", () -> Experiment.builder().name(null));
        fails(NullPointerException.class, "consumer", () -> Experiment.builder().output(null));
    }

    @Test
    void theDefaultNameInMessagesIsThePathOfTheSite() {
        Experiment closed = Experiment.builder().silent().open(Tanks.FLUME);
        closed.close();
        fails(IllegalStateException.class, "experiment \"" + Tanks.FLUME + "\" is closed",
                closed::settings);
    }
}
