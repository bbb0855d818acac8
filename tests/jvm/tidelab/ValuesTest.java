package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import java.util.ArrayList;
import java.util.List;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;

/** Parameters, vectors and records keep their values and can be deleted. */
class ValuesTest {
    @BeforeAll
    static void load() {
        Flume.load();
    }

    private static List<String> strings(long vector) {
        List<String> result = new ArrayList<>();
        for (int i = 0; i < Kelpbox_StdVectorString_size(vector, null); ++i) {
            result.add(Kelpbox_StdVectorString_get(vector, null, i));
        }
        delete_Kelpbox_StdVectorString(vector);
        return result;
    }

    @Test
    void numbersOfEachWidthKeepTheirValues() {
        long doubles = new_Kelpbox_StdVectorDouble__SWIG_0();
        long floats = new_Kelpbox_StdVectorFloat__SWIG_0();
        long shorts = new_Kelpbox_StdVectorShort__SWIG_0();
        long counts = new_Kelpbox_StdVectorUInt__SWIG_0();
        for (int i = 0; i < 1000; ++i) {
            Kelpbox_StdVectorDouble_add(doubles, null, i * 0.1);
            Kelpbox_StdVectorFloat_add(floats, null, i * 0.5f);
            Kelpbox_StdVectorShort_add(shorts, null, (short) (i - 500));
            Kelpbox_StdVectorUInt_add(counts, null, 0xFFFFFFFFL - i);
        }
        assertEquals(1000, Kelpbox_StdVectorFloat_size(floats, null));
        for (int i = 0; i < 1000; ++i) {
            assertEquals(i * 0.1, Kelpbox_StdVectorDouble_get(doubles, null, i));
            assertEquals(i * 0.5f, Kelpbox_StdVectorFloat_get(floats, null, i));
            assertEquals((short) (i - 500), Kelpbox_StdVectorShort_get(shorts, null, i));
            assertEquals(0xFFFFFFFFL - i, Kelpbox_StdVectorUInt_get(counts, null, i));
        }
        delete_Kelpbox_StdVectorDouble(doubles);
        delete_Kelpbox_StdVectorFloat(floats);
        delete_Kelpbox_StdVectorShort(shorts);
        delete_Kelpbox_StdVectorUInt(counts);
    }

    @Test
    void clearKeepsTheCapacity() {
        long vector = new_Kelpbox_StdVectorShort__SWIG_1(7);
        Kelpbox_StdVectorShort_reserve(vector, null, 100);
        long capacity = Kelpbox_StdVectorShort_capacity(vector, null);
        assertTrue(capacity >= 100);
        Kelpbox_StdVectorShort_reserve(vector, null, 10);
        assertEquals(capacity, Kelpbox_StdVectorShort_capacity(vector, null));
        assertFalse(Kelpbox_StdVectorShort_isEmpty(vector, null));
        Kelpbox_StdVectorShort_clear(vector, null);
        assertTrue(Kelpbox_StdVectorShort_isEmpty(vector, null));
        assertEquals(capacity, Kelpbox_StdVectorShort_capacity(vector, null));
        delete_Kelpbox_StdVectorShort(vector);
    }

    @Test
    void stringsKeepTheirCharacters() {
        long vector = new_Kelpbox_StdVectorString__SWIG_1(1);
        assertEquals("", Kelpbox_StdVectorString_get(vector, null, 0));
        String text = "Wellenhöhe 波高 λ = 2π/k";
        Kelpbox_StdVectorString_add(vector, null, text);
        Kelpbox_StdVectorString_set(vector, null, 0, "x".repeat(100_000));
        assertEquals(text, Kelpbox_StdVectorString_get(vector, null, 1));
        assertEquals(100_000, Kelpbox_StdVectorString_get(vector, null, 0).length());
        Kelpbox_StdVectorString_clear(vector, null);
        assertEquals(0, Kelpbox_StdVectorString_size(vector, null));
        delete_Kelpbox_StdVectorString(vector);
    }

    @Test
    void frontsTakeTheFrequencyFirstAndStoreItLast() {
        long front = new_Kelpbox_Front__SWIG_1(1.0, 2.0, 3.0, 4.0);
        assertEquals(1.0, Kelpbox_Front_get_freq(front, null));
        assertEquals(2.0, Kelpbox_Front_get_amp(front, null));
        assertEquals(3.0, Kelpbox_Front_get_angle(front, null));
        assertEquals(4.0, Kelpbox_Front_get_phase(front, null));
        assertEquals(4.0, Kelpbox_Position_get_t(front, null));
        long vector = new_Kelpbox_StdVectorFront__SWIG_0();
        Kelpbox_StdVectorFront_add(vector, null, front, null);
        delete_Kelpbox_Front(front);
        long copy = Kelpbox_StdVectorFront_get(vector, null, 0);
        assertEquals(3.0, Kelpbox_Front_get_angle(copy, null));
        delete_Kelpbox_StdVectorFront(vector);

        long transfer = new_Kelpbox_TransferFront();
        assertEquals(0, Kelpbox_TransferFront_get_harmonic(transfer, null));
        delete_Kelpbox_TransferFront(transfer);
    }

    @Test
    void deletingANullHandleDoesNothing() {
        delete_Kelpbox_StdVectorDouble(0);
        delete_Kelpbox_StdVectorString(0);
        delete_Kelpbox_StdVectorParam(0);
        delete_Kelpbox_Param(0);
        delete_Kelpbox_Params(0);
        delete_Kelpbox_Vector(0);
        delete_Kelpbox_Front(0);
        delete_Kelpbox_RunData(0);
        delete_Kelpbox_Experiment(0);
    }

    @Test
    void parametersConvertOnReading() {
        long params = new_Kelpbox_Params();
        Flume.insert(params, "height", 30, "cm");
        Flume.insert(params, "f", 2, "Hz");
        Flume.insert(params, "window", "Hamming", "Window");
        assertEquals(0.3, Kelpbox_Params_get(params, null, "height", "m"), 1e-15);
        assertEquals(2 * Flume.TWO_PI, Kelpbox_Params_get(params, null, "f", "rad/s"), 1e-14);
        assertEquals(6, Kelpbox_Params_get_enum(params, null, "window", "Window"));
        delete_Kelpbox_Params(params);
    }

    @Test
    void theListOfParametersIsASnapshotOrderedByName() {
        long params = new_Kelpbox_Params();
        Flume.insert(params, "alpha", 1.5, "mm");
        Flume.insert(params, "Zeta", "True", "Bool");
        long list = Kelpbox_Params_param_list(params, null);
        assertEquals(2, Kelpbox_StdVectorParam_size(list, null));
        long zeta = Kelpbox_StdVectorParam_get(list, null, 0);
        assertEquals("Zeta", Kelpbox_Param_name(zeta, null));
        assertTrue(Kelpbox_Param_is_enum(zeta, null));
        assertEquals("Bool", Kelpbox_Param_enum_type(zeta, null));
        assertEquals("True", Kelpbox_Param_enum_value(zeta, null));
        long alpha = Kelpbox_StdVectorParam_get(list, null, 1);
        assertEquals("mm", Kelpbox_Param_units(alpha, null));
        assertEquals(1.5, Kelpbox_Param_value(alpha, null));
        Kelpbox_Params_clear(params, null);
        assertEquals(2, Kelpbox_StdVectorParam_size(list, null));
        Kelpbox_Params_param_list(params, null);
        assertTrue(Kelpbox_StdVectorParam_isEmpty(list, null));
        delete_Kelpbox_Params(params);
    }

    @Test
    void alternativesIncludeTheUnitsThemselves() {
        assertEquals(
                List.of("km", "m", "cm", "mm", "ft", "in"), strings(Kelpbox_Param_alternate("km")));
        assertEquals(List.of("N"), strings(Kelpbox_Param_alternate("N")));
    }

    @Test
    void aVectorCopiesItsData() {
        long data = new_Kelpbox_StdVectorDouble__SWIG_1(2);
        Kelpbox_StdVectorDouble_set(data, null, 1, 0.25);
        long vector = new_Kelpbox_Vector("probe", "m", data, null);
        delete_Kelpbox_StdVectorDouble(data);
        assertEquals(2, Kelpbox_Vector_size(vector, null));
        assertEquals(0.25, Kelpbox_Vector_getValue(vector, null, 1));
        delete_Kelpbox_Vector(vector);
    }
}
