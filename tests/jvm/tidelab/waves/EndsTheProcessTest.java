package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;
import static tidelab.waves.Tanks.fails;

import java.lang.reflect.Method;
import java.nio.file.Path;
import java.util.Collections;
import java.util.List;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;
import tidelab.waves.component.WaveSynthesisException;

/**
 * Each mistake that ends the process in the native interface (docs/native-failures.md, in the order
 * of its table) is an exception here, or cannot be made.
 */
class EndsTheProcessTest {
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
    void aCallBeforeInitialise() {
        // Nobody but `open` makes an experiment, and it returns one with a site.
        assertEquals(0, Experiment.class.getConstructors().length);
        assertEquals(0, Handle.class.getConstructors().length);
        assertEquals("Flume piston", experiment.siteName());
    }

    @Test
    void aCallAfterAnInitialiseThatCouldNotReadTheScript() {
        int before = Tanks.live();
        assertThrows(WaveSynthesisException.class, () -> Experiment.open(Path.of("missing.site")));
        assertEquals(before, Tanks.live());
    }

    @Test
    void aPaddleMotionAfterAnInitialiseThatCouldNotMakeTheTank() {
        int before = Tanks.live();
        Path site = Tanks.file(Tanks.SCRIPT.replace("depth = \"1.0\"", "depth = \"1-$[m]\""));
        String message = assertThrows(
                WaveSynthesisException.class, () -> Experiment.builder().silent().open(site))
                                 .getMessage();
        assertTrue(message.startsWith("Section[1]::depth profile does not"), message);
        assertEquals(before, Tanks.live());
    }

    @Test
    void aPaddleMotionAfterASetThatLeftNoTank() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        Run run = definition.build();
        // What an analysis does to the tank of its handle stands for any way to lose it.
        experiment.handle().run(address -> {
            try (Parameters parameters = Parameters.of(Site.settings(address))) {
                KelpboxNativeLibraryJNI.Kelpbox_Analysis_set(
                        address, null, parameters.address(), null);
            }
        });
        fails(IllegalStateException.class,
                "the site has no tank: set its values again before the paddle motion",
                () -> run.paddleMotion("50 Hz"));
        fails(WaveSynthesisException.class, "Building run when context not ready",
                definition::build);
        experiment.set();
        assertEquals(500, definition.build().paddleMotion("50 Hz").signal(0, 0).length);
    }

    @Test
    void theSizeOfABankThatDoesNotExist() {
        fails(IndexOutOfBoundsException.class, "bank 1 does not exist: they count from 0 to 0",
                () -> experiment.bank(1).size());
    }

    @Test
    void aDivisionOfAnIntegerByZeroInAScript() {
        int before = Tanks.live();
        Path site = Tanks.file(Tanks.SCRIPT.replace("max_y = 0.5", "max_y = 1/0"));
        String message = assertThrows(
                WaveSynthesisException.class, () -> Experiment.builder().silent().open(site))
                                 .getMessage();
        assertFalse(message.isEmpty());
        assertEquals(before, Tanks.live());
    }

    @Test
    void aLengthThatNoVectorCanHave() {
        Specification place = Tanks.place(Tanks.definition(experiment, "run"));
        Front front = new Front(0.5, 0.1, 0, 0);
        fails(IllegalArgumentException.class, "fronts: 2147483647 are too many",
                () -> place.addFronts(Collections.nCopies(Integer.MAX_VALUE, front)));
        assertEquals(List.of(), place.components());
    }

    @Test
    void moreMemoryThanTheMachineHas() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        definition.set("repeat", "100000 s");
        Run run = definition.build();
        assertThrows(WaveSynthesisException.class, () -> run.paddleMotion("1 MHz"));
        assertThrows(WaveSynthesisException.class, () -> run.paddleMotion("-1 Hz"));
        assertEquals(1, run.fronts().size());
    }

    @Test
    void aHandleAfterItsEnd() {
        Definition removed = Tanks.wave(experiment, 0.5, 0.02, 0);
        removed.remove();
        fails(IllegalStateException.class, "definition \"run\" has been removed", removed::build);
        fails(IllegalStateException.class, "definition \"run\" has been removed", removed::remove);
        Definition cleared = Tanks.wave(experiment, 0.5, 0.02, 0);
        experiment.clear();
        fails(IllegalStateException.class, "definition \"run\" has been removed", cleared::build);
        experiment.close();
        fails(IllegalStateException.class, "experiment \"flume\" is closed", experiment::clear);
    }

    @Test
    void aResultAfterItsEnd() {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        Run run = definition.build();
        PaddleMotion motion = run.paddleMotion("50 Hz");
        List<Front> fronts = run.fronts();
        double[] signal = motion.signal(0, 0);
        definition.remove();
        assertEquals(0.02, fronts.get(0).amplitude(), 1e-15);
        assertEquals(500, signal.length);
        assertThrows(IllegalStateException.class, () -> motion.signal(0, 0));
    }

    @Test
    void aDeleteTwice() {
        int before = Tanks.live();
        experiment.close();
        experiment.close();
        assertEquals(before - 1, Tanks.live());
    }

    @Test
    void aVectorThatIsDeletedWhileAComponentReadsIt() {
        Definition definition = Tanks.definition(experiment, "run");
        Component record =
                Tanks.place(definition).addTimeSeries("record", "m", new double[] {0, 0.1, 0});
        record.set("rate", "10 Hz", "scale_ratio", 1, "ramp_time", "0 s", "ramp_type", Ramp.Null);
        System.gc();
        assertEquals(1, experiment.handle().kept());
        assertFalse(definition.build().fronts().isEmpty());
        record.remove();
        assertEquals(0, experiment.handle().kept());
    }

    /** The handle 0, a handle of another class, a handle that the library owns. */
    @Test
    void aWrongHandle() {
        List<Class<?>> api = List.of(Kelpbox.class, Experiment.class, Experiment.Builder.class,
                Bank.class, Paddle.class, Item.class, Definition.class, Specification.class,
                Component.class, Modifier.class, Run.class, PaddleMotion.class, Front.class,
                TransferFront.class, Position.class, Repeat.class, Settings.class, Quantity.class);
        for (Class<?> type : api) {
            for (Method method : type.getDeclaredMethods()) {
                if (!java.lang.reflect.Modifier.isPublic(method.getModifiers()))
                    continue;
                assertFalse(method.getReturnType() == long.class
                                || List.of(method.getParameterTypes()).contains(long.class),
                        method + " passes an address");
            }
        }
    }

    @Test
    void twoThreadsInOneExperiment() throws InterruptedException {
        Definition definition = Tanks.wave(experiment, 0.5, 0.02, 0);
        Thread[] threads = new Thread[4];
        int[] fronts = new int[4];
        for (int i = 0; i < 4; ++i) {
            int place = i;
            threads[i] = new Thread(() -> {
                for (int round = 0; round < 50; ++round) {
                    Tanks.wave(experiment, 1.0, 0.01, 0).remove();
                    fronts[place] += definition.settings().names().size();
                }
            });
            threads[i].start();
        }
        for (Thread thread : threads) thread.join();
        for (int count : fronts) assertEquals(50 * 5, count);
        assertEquals(List.of(definition), experiment.definitions());
    }

    @Test
    void aClassPathWithoutTheExceptionOfTheLibrary() throws ClassNotFoundException {
        // The class that reports failures is in the jar of the class that causes them.
        assertEquals(Experiment.class.getProtectionDomain().getCodeSource().getLocation(),
                WaveSynthesisException.class.getProtectionDomain().getCodeSource().getLocation());
    }
}
