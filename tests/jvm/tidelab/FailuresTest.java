package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** Each kind of failure arrives as the right class with the exact message. */
class FailuresTest {
    @BeforeAll
    static void load() {
        Flume.load();
    }

    private static void fails(Class<? extends Throwable> kind, String message, Executable call) {
        Throwable thrown = assertThrows(kind, call);
        assertEquals(kind, thrown.getClass());
        assertEquals(message, thrown.getMessage());
    }

    private static void fails(String message, Executable call) {
        fails(WaveSynthesisException.class, message, call);
    }

    @Test
    void aNullStringIsRefusedBeforeTheOperation() {
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        fails(NullPointerException.class, "null std::string",
                () -> Kelpbox_Experiment_initialise(experiment, null, null));
        fails(NullPointerException.class, "null std::string",
                () -> new_Kelpbox_Experiment__SWIG_1(null));
        fails(NullPointerException.class, "null std::string",
                () -> Kelpbox_Param_convert("m", null));
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void aNullReferenceIsRefusedWithItsType() {
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        fails(NullPointerException.class, "Base::Params & reference is null",
                () -> Kelpbox_Experiment_query(experiment, null, 0, null));
        fails(NullPointerException.class, "Synthesis::DispFronts const & reference is null",
                () -> Kelpbox_Experiment_add_fronts(experiment, null, 0, 0, null));
        fails(NullPointerException.class, "Base::Vector & reference is null",
                () -> Kelpbox_Experiment_add_timeseries(experiment, null, 0, 0, null));
        fails(NullPointerException.class, "std::vector< double > const & reference is null",
                () -> new_Kelpbox_Vector("label", "m", 0, null));
        long fronts = new_Kelpbox_StdVectorFront__SWIG_0();
        fails(NullPointerException.class,
                "std::vector< Synthesis::Front >::value_type const & reference is null",
                () -> Kelpbox_StdVectorFront_add(fronts, null, 0, null));
        delete_Kelpbox_StdVectorFront(fronts);
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void aNullStringHidesALaterNullReference() {
        fails(NullPointerException.class, "null std::string",
                () -> new_Kelpbox_Vector("label", null, 0, null));
    }

    @Test
    void anIndexOutsideAVectorIsAnIndexOutOfBoundsException() {
        long vector = new_Kelpbox_StdVectorDouble__SWIG_1(3);
        for (int index : new int[] {-1, 3, Integer.MIN_VALUE, Integer.MAX_VALUE}) {
            fails(IndexOutOfBoundsException.class, "vector index out of range",
                    () -> Kelpbox_StdVectorDouble_get(vector, null, index));
            fails(IndexOutOfBoundsException.class, "vector index out of range",
                    () -> Kelpbox_StdVectorDouble_set(vector, null, index, 1.0));
        }
        delete_Kelpbox_StdVectorDouble(vector);
    }

    @Test
    void beforeInitialiseOperationsGiveTheirFixedMessages() {
        long experiment = new_Kelpbox_Experiment__SWIG_1("empty");
        long params = new_Kelpbox_Params();
        fails("Uncaught Exception in Experiment Query",
                () -> Kelpbox_Experiment_query(experiment, null, params, null));
        fails("Uncaught Exception in Experiment set",
                () -> Kelpbox_Experiment_set(experiment, null, params, null));
        fails("Uncaught Exception in Experiment get consts",
                () -> Kelpbox_Experiment_get_consts(experiment, null, params, null));
        fails("ID out of range", () -> Kelpbox_Experiment_run_build(experiment, null, 0));
        delete_Kelpbox_Params(params);
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void aMissingScriptIsNamed() {
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        fails("File \"/nowhere/no.site\" does not exist",
                () -> Kelpbox_Experiment_initialise(experiment, null, "/nowhere/no.site"));
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void anUnsetKeyFailsTheLoad() {
        String file = Flume.file(Flume.SCRIPT.replace("base_rho = 1000;", ""));
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        fails(file + "::Failed to verify",
                () -> Kelpbox_Experiment_initialise(experiment, null, file));
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void aSyntaxErrorGivesTheFixedMessage() {
        String file = Flume.file("context { site_name = ; }");
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        fails("Uncaught Exception in Experiment Initialise",
                () -> Kelpbox_Experiment_initialise(experiment, null, file));
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void aFailedCheckOfTheSiteGoesToTheLog() {
        String file = Flume.file(Flume.SCRIPT.replace("max_y = 0.5;", "max_y = -5;"));
        long experiment = new_Kelpbox_Experiment__SWIG_0();
        fails("Caught log exception", () -> Kelpbox_Experiment_initialise(experiment, null, file));
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void aSecondInitialiseGivesTheFixedMessage() {
        long experiment = Flume.experiment();
        fails("Uncaught Exception in Experiment Initialise",
                () -> Kelpbox_Experiment_initialise(experiment, null, Flume.file(Flume.SCRIPT)));
        assertEquals("Flume piston", Kelpbox_Experiment_context_name(experiment, null));
        delete_Kelpbox_Experiment(experiment);
    }

    @Test
    void messagesNameTheUnitsOrTheParameter() {
        fails("Unknown units - furlong", () -> Kelpbox_Param_convert("furlong", "m"));
        fails("Unable to convert from \"ft\" to \"s\"", () -> Kelpbox_Param_convert("ft", "s"));
        long params = new_Kelpbox_Params();
        fails("depth::Not found", () -> Kelpbox_Params_get(params, null, "depth", "m"));
        Flume.insert(params, "depth", 1, "m");
        fails("\"depth\"::Duplicate parameter:", () -> Flume.insert(params, "depth", 1, "m"));
        fails("Enum type::Window::Bartlett::Not found",
                () -> Flume.insert(params, "window", "Bartlett", "Window"));
        delete_Kelpbox_Params(params);
    }

    @Test
    void banksAndPaddlesOutOfRangeAreReported() {
        long experiment = Flume.experiment();
        long params = new_Kelpbox_Params();
        fails("Paddle bank out of range",
                () -> Kelpbox_Experiment_paddle_bank_info(experiment, null, 1, params, null));
        fails("Paddle number out of range",
                () -> Kelpbox_Experiment_paddle_info(experiment, null, 0, 1, params, null));
        delete_Kelpbox_Params(params);
        delete_Kelpbox_Experiment(experiment);
    }
}
