package tidelab.waves;

import java.util.ArrayList;
import java.util.List;

/** The places where no library could be loaded, each with the reason. */
final class Attempts {
    private final List<String> failures = new ArrayList<>();

    void failed(String placeAndReason) {
        failures.add(placeAndReason);
    }

    LibraryNotFoundException exception() {
        StringBuilder message = new StringBuilder("Kelpbox's native library cannot be loaded:");
        for (String failure : failures) {
            message.append("\n  ").append(failure);
        }
        return new LibraryNotFoundException(message.toString());
    }
}
