package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.Test;

/** IDs, the tree of items, and the messages about items that do not fit into it. */
class TreeTest extends FlumeTest {
    @Test
    void idsStartAtZeroAndAreNotReused() {
        assertEquals(0, Kelpbox_Experiment_add_definition(experiment, null, "run"));
        assertEquals(1, Kelpbox_Experiment_add_specification(experiment, null, 0));
        assertEquals(2, Kelpbox_Experiment_add_single(experiment, null, 1));
        Kelpbox_Experiment_remove(experiment, null, 2);
        assertEquals(3, Kelpbox_Experiment_add_single(experiment, null, 1));
        Kelpbox_Experiment_clear(experiment, null);
        assertEquals(0, Kelpbox_Experiment_add_definition(experiment, null, "run"));
    }

    @Test
    void itemsUnderTheWrongParentAreRefused() {
        Kelpbox_Experiment_add_definition(experiment, null, "run");
        Kelpbox_Experiment_add_specification(experiment, null, 0);
        fails("Single::Trying to add to invalid type",
                () -> Kelpbox_Experiment_add_single(experiment, null, 0));
        fails("Adding an Specification to invalid type",
                () -> Kelpbox_Experiment_add_specification(experiment, null, 1));
        fails("ID out of range", () -> Kelpbox_Experiment_add_single(experiment, null, 2));
        fails("ID out of range", () -> Kelpbox_Experiment_fronts__SWIG_2(experiment, null, 9));
        assertEquals(2, Kelpbox_Experiment_add_single(experiment, null, 1));
    }

    @Test
    void removingADefinitionRemovesEverythingUnderIt() {
        Kelpbox_Experiment_add_definition(experiment, null, "run");
        Kelpbox_Experiment_add_specification(experiment, null, 0);
        Kelpbox_Experiment_add_single(experiment, null, 1);
        Kelpbox_Experiment_remove(experiment, null, 0);
        for (int id = 0; id < 3; ++id) {
            final int item = id;
            fails("Trying to query an inactive type",
                    () -> Kelpbox_Experiment_query__SWIG_1(experiment, null, item, params, null));
        }
        fails("removing item of type NULL", () -> Kelpbox_Experiment_remove(experiment, null, 0));
    }

    @Test
    void onlyADefinitionCanBeRun() {
        Kelpbox_Experiment_add_definition(experiment, null, "run");
        Kelpbox_Experiment_add_specification(experiment, null, 0);
        fails("Trying to access Definition",
                () -> Kelpbox_Experiment_run_build(experiment, null, 1));
        fails("Evaluate before setting state",
                () -> Kelpbox_Experiment_run_build(experiment, null, 0));
    }

    @Test
    void modifiersWithoutAClassAreRefused() {
        Kelpbox_Experiment_add_definition(experiment, null, "run");
        Kelpbox_Experiment_add_specification(experiment, null, 0);
        for (String name : new String[] {"AngleSet", "PhaseSet"}) {
            fails("Unexpected wave modifier in add_modifier",
                    () -> Kelpbox_Experiment_add_modifier(experiment, null, 1, name, ""));
        }
        fails("Enum type::WaveMod::Swirl::Not found",
                () -> Kelpbox_Experiment_add_modifier(experiment, null, 99, "Swirl", ""));
        fails("ID out of range",
                () -> Kelpbox_Experiment_add_modifier(experiment, null, 99, "AngleSet", ""));
    }

    @Test
    void parametersOfFormulasAreDeclaredWithoutAnExperiment() {
        Kelpbox_Experiment_get_params("0.1@Hz#Hs[m]*$[Hz]@m2s#fmax[Hz]@Hz", params, null);
        long list = Kelpbox_Params_param_list(params, null);
        assertEquals(2, Kelpbox_StdVectorParam_size(list, null));
        assertEquals("Hs", Kelpbox_Param_name(Kelpbox_StdVectorParam_get(list, null, 0), null));
        assertEquals("fmax", Kelpbox_Param_name(Kelpbox_StdVectorParam_get(list, null, 1), null));
        fails("Error while parsing expression ::2 3",
                () -> Kelpbox_Experiment_get_params("2 3", params, null));
    }
}
