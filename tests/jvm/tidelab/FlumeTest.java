package tidelab;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.function.Executable;
import tidelab.waves.component.WaveSynthesisException;

/** A test with an experiment in the flume and an empty set of parameters. */
abstract class FlumeTest {
    protected long experiment;
    protected long params;

    @BeforeAll
    static void load() {
        Flume.load();
    }

    @BeforeEach
    void open() {
        experiment = Flume.experiment(script());
        params = new_Kelpbox_Params();
    }

    @AfterEach
    void free() {
        delete_Kelpbox_Params(params);
        delete_Kelpbox_Experiment(experiment);
    }

    /** The site. Subclasses may change it. */
    String script() {
        return Flume.SCRIPT;
    }

    static void fails(String message, Executable call) {
        assertEquals(message, assertThrows(WaveSynthesisException.class, call).getMessage());
    }
}
