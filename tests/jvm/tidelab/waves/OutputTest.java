package tidelab.waves;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import tidelab.waves.component.WaveSynthesisException;

/** Where the lines go that the library writes during a call. */
class OutputTest {
    /** A definition whose build writes three lines, one of them of this form. */
    private static final String RATES =
            "Time series \"pulse\" has max rate of [-+.e0-9]+ and acceleration of [-+.e0-9]+";

    private static Definition pulse(Experiment experiment) {
        Definition definition = Tanks.definition(experiment, "run");
        Tanks.place(definition)
                .addTimeExpression("pulse", "0@s#0.1*sin($[s])@m#9@s")
                .set("rate", "20 Hz");
        return definition;
    }

    private static Experiment open(Consumer<String> output) {
        return Experiment.builder().name("flume").output(output).open(Tanks.FLUME);
    }

    @Test
    void aConsumerReceivesTheLinesOfACallOnItsThread() {
        List<String> lines = new ArrayList<>();
        List<Thread> threads = new ArrayList<>();
        try (Experiment experiment = open(line -> {
            lines.add(line);
            threads.add(Thread.currentThread());
        })) {
            Definition definition = pulse(experiment);
            lines.clear();
            definition.build();
            assertTrue(lines.stream().anyMatch(line -> line.matches(RATES)), lines.toString());
            assertTrue(lines.stream().noneMatch(line -> line.contains("\n")));
            for (Thread thread : threads) assertSame(Thread.currentThread(), thread);
        }
    }

    @Test
    void theLinesOfACallThatFailsAreReceivedToo() {
        List<String> lines = new ArrayList<>();
        try (Experiment experiment = open(lines::add)) {
            Definition definition = Tanks.definition(experiment, "run");
            Tanks.place(definition).addFronts(List.of(new Front(7, 0.1, 0, 0))).set();
            lines.clear();
            assertThrows(WaveSynthesisException.class, definition::build);
            assertEquals(List.of("wave number out of range 70 must be between 1 and 20"), lines);
        }
    }

    @Test
    void theCauseOfARefusedSiteHasTheLinesThatExplainIt() {
        Path upsideDown = Tanks.file(Tanks.SCRIPT.replace("max_y = 0.5", "max_y = -5"));
        Path unfinished = Tanks.file("context");
        assertTrue(causeOf(upsideDown).endsWith("Max Y -5 is less than Min Y -0.5"));
        assertTrue(causeOf(unfinished).contains("syntax error, unexpected end of input"));
    }

    private static String causeOf(Path site) {
        return assertThrows(
                WaveSynthesisException.class, () -> Experiment.builder().silent().open(site))
                .getCause()
                .getMessage();
    }

    @Test
    void aCallThatFailsWithoutLinesHasNoCause() {
        try (Experiment experiment = open(line -> {})) {
            Definition definition = Tanks.definition(experiment, "run");
            assertNull(assertThrows(WaveSynthesisException.class,
                    () -> Tanks.place(definition).addSpectrum("s", "0.2@Hz"))
                               .getCause());
        }
    }

    @Test
    void aConsumerMayUseTheExperimentAndIsNeverCalledFromWithinItself() {
        Experiment[] opened = new Experiment[1];
        List<Integer> depths = new ArrayList<>();
        int[] depth = new int[1];
        int[] builds = new int[1];
        try (Experiment experiment = open(line -> {
            depths.add(++depth[0]);
            if (opened[0] != null && builds[0]++ < 3) {
                opened[0].addDefinition("from the consumer").remove();
                opened[0].definitions().get(0).build();
            }
            --depth[0];
        })) {
            Definition definition = pulse(experiment);
            depths.clear();
            Run alone = definition.build();
            int lines = depths.size();
            depths.clear();
            opened[0] = experiment;
            definition.build();
            assertEquals(Collections.nCopies(4 * lines, 1), depths);
            Tanks.fails(IllegalStateException.class,
                    "this run of definition \"run\" is out of date: build it again", alone::fronts);
        }
    }

    @Test
    void aConsumerThatClosesTheExperimentDoesSoAfterTheCall() {
        Experiment[] opened = new Experiment[1];
        Experiment experiment = open(line -> {
            if (opened[0] != null)
                opened[0].close();
        });
        Definition definition = pulse(experiment);
        opened[0] = experiment;
        assertSame(definition, definition.build().definition());
        assertTrue(experiment.isClosed());
    }

    @Test
    void whatAConsumerThrowsGoesToTheHandlerOfTheThread() throws InterruptedException {
        List<Throwable> thrown = new ArrayList<>();
        List<Integer> fronts = new ArrayList<>();
        Error refusal = new AssertionError("no line, please");
        Thread thread = new Thread(() -> {
            try (Experiment experiment = open(line -> { throw refusal; })) {
                Definition definition = pulse(experiment);
                thrown.clear();
                fronts.add(definition.build().fronts().size());
            }
        });
        // A handler that throws does not change the call either.
        thread.setUncaughtExceptionHandler((where, what) -> {
            thrown.add(what);
            throw new IllegalStateException("from the handler");
        });
        thread.start();
        thread.join();
        assertEquals(List.of(refusal), thrown);
        assertEquals(1, fronts.size());
        assertTrue(fronts.get(0) > 0);
    }

    // The library writes a line with the same message.
    @Test
    void aFormulaThatIsNoneWritesNothing(@TempDir Path folder) throws Exception {
        assertEquals(List.of("Error while parsing expression ::1+"),
                new FreshJvm(folder).run("formula=1+"));
    }
}
