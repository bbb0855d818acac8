package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertNotEquals;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.util.List;
import java.util.NoSuchElementException;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import tidelab.waves.component.WaveSynthesisException;

/** Named values. */
class SettingsTest {
    @BeforeAll
    static void load() {
        Tanks.load();
    }

    private final Settings settings = Settings.of("repeat", "64 s", "seed", 17, "dalrymple", false,
            "wave_merge", WaveMerge.RMS, "x", Quantity.of(80, "mm"));

    @Test
    void eachKindOfValueIsReadAsWhatItIs() {
        assertEquals(Quantity.of(64, "s"), settings.quantity("repeat"));
        assertEquals(17, settings.get("seed", ""));
        assertEquals(0.08, settings.get("x", "m"), 1e-15);
        assertFalse(settings.flag("dalrymple"));
        assertSame(WaveMerge.RMS, settings.choice("wave_merge"));
        assertSame(WaveMerge.RMS, settings.choice("wave_merge", WaveMerge.class));
        assertEquals(
                "repeat = 64.0 s, seed = 17.0, dalrymple = false, wave_merge = RMS, x = 80.0 mm",
                settings.toString());
    }

    @Test
    void namesKeepTheirOrder() {
        List<String> names = List.of("repeat", "seed", "dalrymple", "wave_merge", "x");
        assertEquals(names, settings.names());
        assertEquals(names, settings.with("seed", 18).names());
        assertTrue(settings.has("x") && settings.isSet("x"));
        assertFalse(settings.has("y") || settings.isSet("y"));
        assertEquals(List.of(), Settings.none().names());
    }

    @Test
    void aChangeLeavesTheOriginal() {
        Settings changed = settings.with("seed", 18).without("x");
        assertEquals(18, changed.get("seed", ""));
        assertFalse(changed.has("x"));
        assertEquals(17, settings.get("seed", ""));
        assertTrue(settings.has("x"));
        assertNotEquals(settings, changed);
        assertEquals(settings, changed.with("seed", "17").with("x", "80 mm"));
    }

    @Test
    void aNameThatDoesNotExistIsReportedWithThoseThatDo() {
        String message = "there is no \"y\" among repeat, seed, dalrymple, wave_merge, x";
        fails(NoSuchElementException.class, message, () -> settings.quantity("y"));
        fails(NoSuchElementException.class, message, () -> settings.get("y", "m"));
        fails(NoSuchElementException.class, message, () -> settings.choice("y"));
        fails(NoSuchElementException.class, message, () -> settings.flag("y"));
        fails(NoSuchElementException.class, message, () -> settings.without("y"));
        fails(NoSuchElementException.class, "there is no \"y\" among no settings",
                () -> Settings.none().quantity("y"));
    }

    @Test
    void aValueOfAnotherKindIsRefused() {
        fails(IllegalArgumentException.class,
                "\"dalrymple\" is not a quantity: \"dalrymple = false\"",
                () -> settings.quantity("dalrymple"));
        fails(IllegalArgumentException.class, "\"x\" is not a boolean: \"x = 80.0 mm\"",
                () -> settings.flag("x"));
        fails(IllegalArgumentException.class,
                "\"wave_merge\" is not a member of Ramp: \"wave_merge = RMS\"",
                () -> settings.choice("wave_merge", Ramp.class));
        fails(WaveSynthesisException.class, "Unable to convert from \"mm\" to \"s\"",
                () -> settings.get("x", "s"));
    }

    @Test
    void listsThatAreNotPairsAreRefused() {
        fails(IllegalArgumentException.class, "\"f\" has no value", () -> Settings.of("f"));
        fails(IllegalArgumentException.class, "not a name: 3", () -> Settings.of(3, "f"));
        fails(IllegalArgumentException.class, "\"f\" is given twice",
                () -> Settings.of("f", 1, "f", 2));
        fails(NullPointerException.class, "name", () -> Settings.of((Object) null, 1));
        fails(NullPointerException.class, "value of \"f\"", () -> Settings.of("f", null));
        fails(NullPointerException.class, "namesAndValues", () -> Settings.of((Object[]) null));
    }

    @Test
    void aTextThatIsNoQuantityIsReportedWithItsName() {
        fails(IllegalArgumentException.class,
                "\"f\": \"fast\" is not a number with units, such as \"80 mm\"",
                () -> Settings.of("f", "fast"));
        fails(IllegalArgumentException.class, "\"f\": Unknown units - Hx",
                () -> Settings.of("f", "1 Hx"));
        fails(IllegalArgumentException.class,
                "\"f\": a quantity, a text such as \"25 mm\", a number, a boolean or a choice is"
                        + " expected, not java.util.ImmutableCollections$ListN",
                () -> Settings.of("f", List.of()));
    }

    @Test
    void theParametersOfFormulasHaveUnitsAndNoValues() {
        Settings declared = Experiment.formulaParameters("0.2@Hz#hs[m]^2*fp[Hz]@m2s#2@Hz");
        assertEquals(List.of("fp", "hs"), declared.names());
        assertFalse(declared.isSet("hs"));
        assertEquals("m", declared.quantity("hs").units());
        assertTrue(Double.isNaN(declared.get("fp", "rad/s")));
        assertEquals("fp without value (Hz), hs without value (m)", declared.toString());
    }

    @Test
    void theNearestNameIsTheOneWithTheFewestChanges() {
        assertEquals(0, Nearest.distance("Rate", "rate"));
        assertEquals(3, Nearest.distance("kitten", "sitting"));
        assertEquals(4, Nearest.distance("", "rate"));
        assertEquals("\"ratte\" is not a setting of it; did you mean \"rate\"? It has: f, rate, x",
                Nearest.explain("ratte", "it", List.of("f", "rate", "x")));
        assertEquals("\"f\" is not a setting of it, which has none",
                Nearest.explain("f", "it", List.of()));
    }

    /** As hosts of the native functions write them. */
    @Test
    void aMemberInQuotesIsAnsweredWithItsConstant() {
        String start = "\": a text is a quantity, such as \"25 mm\"; give ";
        fails(IllegalArgumentException.class,
                "\"wave_merge" + start + "WaveMerge.RMS instead of \"RMS\"",
                () -> Settings.of("wave_merge", "RMS"));
        fails(IllegalArgumentException.class, "\"dalrymple" + start + "false instead of \"False\"",
                () -> Settings.of("dalrymple", "False"));
    }
}
