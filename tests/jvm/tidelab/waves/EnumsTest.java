package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertSame;

import java.util.List;
import java.util.stream.Stream;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;
import tidelab.waves.component.WaveSynthesisException;

/** The constants are the members that the library knows, under the same numbers. */
class EnumsTest {
    @BeforeAll
    static void load() {
        Tanks.load();
    }

    private static long number(Object value, String type) {
        try (Parameters parameters = Parameters.of(Settings.of("it", value))) {
            return KelpboxNativeLibraryJNI.Kelpbox_Params_get_enum(
                    parameters.address(), null, "it", type);
        }
    }

    @Test
    void constantsHaveTheNumbersOfTheLibrary() {
        List<Choice[]> all = List.of(DataMod.values(), Geometry.values(), RanGen.values(),
                Ramp.values(), SpreadFunc.values(), WaveMerge.values(), Window.values());
        for (Choice[] type : all) {
            for (int i = 0; i < type.length; ++i) {
                assertEquals(i, number(type[i], type[i].type()), type[i].member());
            }
        }
        assertEquals(0, number(false, "Bool"));
        assertEquals(1, number(true, "Bool"));
    }

    /** The library has nine kinds of modifiers, of which numbers 3 and 7 have no class. */
    @Test
    void modifierTypesLeaveOutTheTwoWithoutAClass() {
        assertEquals(List.of(0L, 1L, 2L, 4L, 5L, 6L, 8L),
                Stream.of(ModifierType.values()).map(type -> number(type, "WaveMod")).toList());
    }

    @Test
    void everyValueReturnsFromTheLibraryAsTheSameConstant() {
        Choice[] some = {DataMod.Wrap, Geometry.BothSides, ModifierType.PhaseWNoise,
                RanGen.Distribute, Ramp.Linear, SpreadFunc.Cos2S, WaveMerge.Random,
                Window.BarlettHann};
        for (Choice choice : some) {
            try (Parameters parameters = Parameters.of(Settings.of("it", choice))) {
                assertSame(choice, parameters.read().choice("it"));
            }
        }
        try (Parameters parameters = Parameters.of(Settings.of("yes", true, "no", false))) {
            assertEquals(Settings.of("no", false, "yes", true), parameters.read());
        }
    }

    @Test
    void aMemberThatNoConstantHasIsRefused() {
        Tanks.fails(WaveSynthesisException.class, "Enum type::WaveMod::PhaseSet::Not found",
                () -> Choices.value("WaveMod", "PhaseSet"));
    }
}
