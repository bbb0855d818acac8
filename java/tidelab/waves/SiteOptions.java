package tidelab.waves;

import java.nio.charset.StandardCharsets;
import java.nio.file.FileSystems;
import java.nio.file.Path;
import java.util.Objects;
import java.util.function.Consumer;

/** How an experiment or an analysis is opened; what their builders have in common. */
final class SiteOptions {
    private String name;
    private int workers = 1;
    private Consumer<String> output;

    void name(String text) {
        name = Objects.requireNonNull(text, "name");
    }

    void workers(int count) {
        if (count < 1)
            throw new IllegalArgumentException("workers: " + count + " is less than 1");
        workers = count;
    }

    void output(Consumer<String> consumer) {
        output = Objects.requireNonNull(consumer, "consumer");
    }

    /**
     * Makes the native object and reads the site. If that fails, nothing stays behind.
     *
     * @param noun "experiment" or "analysis", for messages
     */
    Handle open(String noun, Path site) {
        Objects.requireNonNull(site, "site");
        if (site.getFileSystem() != FileSystems.getDefault()) {
            throw new IllegalArgumentException("\"" + site + "\" is not a file of this machine");
        }
        String shown = name != null ? name : site.toString();
        Handle handle =
                new Handle(noun + " \"" + shown + "\"", bytes(name == null ? "" : name), output);
        try {
            handle.run(address -> {
                Native.setWorkers(address, workers);
                Native.initialise(address, bytes(site.toString()));
            });
            return handle;
        } catch (Throwable failure) {
            handle.close();
            throw failure;
        }
    }

    static byte[] bytes(String text) {
        return text.getBytes(StandardCharsets.UTF_8);
    }
}
