package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTimeoutPreemptively;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.time.Duration;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import tidelab.waves.component.WaveSynthesisException;

/** Numbers with units. */
class QuantityTest {
    @BeforeAll
    static void load() {
        Tanks.load();
    }

    @Test
    void aTextIsANumberAndItsUnits() {
        assertEquals(new Quantity(80, "mm"), Quantity.of("80 mm"));
        assertEquals(new Quantity(80, "mm"), Quantity.of("  80mm "));
        assertEquals(new Quantity(-0.25, "Hz"), Quantity.of("-.25 Hz"));
        assertEquals(new Quantity(1200, "m"), Quantity.of("1.2e3m"));
        assertEquals(new Quantity(3, ""), Quantity.of("3."));
        assertEquals(new Quantity(2, "m2/Hz"), Quantity.of("+2 m2/Hz"));
    }

    @Test
    void aTextThatIsNoQuantityIsRefused() {
        for (String text : new String[] {"", "mm", "80 m m", "1,5 m", "NaN m", "--1"}) {
            fails(IllegalArgumentException.class,
                    "\"" + text + "\" is not a number with units, such as \"80 mm\"",
                    () -> Quantity.of(text));
        }
        fails(IllegalArgumentException.class, "\"1e999 m\" is too large a number",
                () -> Quantity.of("1e999 m"));
    }

    @Test
    void unknownUnitsAreRefusedEarlyInTheWordsOfTheLibrary() {
        fails(WaveSynthesisException.class, "Unknown units - furlong",
                () -> Quantity.of("3 furlong"));
        fails(WaveSynthesisException.class, "Unknown units - Mm2x", () -> Quantity.of(1, "Mm2x"));
        fails(WaveSynthesisException.class, "Unknown units - x10", () -> Quantity.of("0x10"));
    }

    @Test
    void unitsOfOneKindConvert() {
        assertEquals(0.08, Quantity.of("80 mm").in("m"), 1e-15);
        assertEquals(2 * Math.PI * 0.8, Quantity.of("0.8 Hz").in("rad/s"), 1e-12);
        assertEquals(new Quantity(150, "min"), Quantity.of("2.5 h").to("min"));
        assertEquals(4e-6, Quantity.of("4 mm2").in("m2"), 1e-20);
    }

    @Test
    void unitsOfDifferentKindsDoNotConvert() {
        fails(WaveSynthesisException.class, "Unable to convert from \"s\" to \"m\"",
                () -> Quantity.of("3 s").in("m"));
        fails(WaveSynthesisException.class, "Unable to convert from \"\" to \"m\"",
                () -> Quantity.of("3").to("m"));
    }

    @Test
    void resultsThatAreNotFiniteAreQuantitiesToo() {
        assertTrue(Double.isNaN(Quantity.of(Double.NaN, "m").in("cm")));
        assertEquals(Double.POSITIVE_INFINITY, Quantity.of(Double.POSITIVE_INFINITY, "m").in("cm"));
    }

    @Test
    void theTextOfAQuantityReadsBack() {
        Quantity quantity = Quantity.of(0.1 + 0.2, "Hz");
        assertEquals(quantity, Quantity.of(quantity.toString()));
        assertEquals("3.0", Quantity.of("3").toString());
    }

    @Test
    void aLongTextIsRefusedInNoTime() {
        String digits = "1".repeat(50_000);
        assertTimeoutPreemptively(Duration.ofSeconds(10),
                ()
                        -> assertThrows(IllegalArgumentException.class,
                                () -> Quantity.of(digits + "." + digits + " m m")));
    }

    @Test
    void nullsAreNamed() {
        fails(NullPointerException.class, "text", () -> Quantity.of(null));
        fails(NullPointerException.class, "units", () -> Quantity.of(1, null));
        fails(NullPointerException.class, "units", () -> Quantity.of(1, "m").in(null));
    }
}
