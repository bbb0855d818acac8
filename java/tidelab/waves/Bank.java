package tidelab.waves;

import java.util.ArrayList;
import java.util.List;
import tidelab.waves.component.WaveSynthesisException;

/**
 * A bank of paddles, as the site describes it.
 *
 * <p>Example: {@code double metres = experiment.bank(0).limits().get("max_paddle_motion", "m");}
 */
public final class Bank {
    private final int index;
    private final String name;
    private final String dataUnits;
    private final String signalUnits;
    private final Settings limits;
    private final List<Paddle> paddles;

    private Bank(long address, int index) {
        this.index = index;
        try (Parameters parameters = Parameters.empty()) {
            name = Native.bank(address, index, parameters.address());
            Settings info = parameters.read();
            dataUnits = info.quantity("data_units").units();
            signalUnits = isAngle(dataUnits) ? "rad" : "m";
            limits = info.without("data_units");
        }
        paddles = Paddle.list(Native.paddles(address, index));
    }

    private static boolean isAngle(String units) {
        try {
            Quantity.of(1, units).in("rad");
            return true;
        } catch (WaveSynthesisException failure) {
            // Any other failure, such as exhausted memory, says nothing about the units.
            if (failure.getMessage().startsWith("Unable to convert from "))
                return false;
            throw failure;
        }
    }

    /** Reads all banks of the site. Only during a call. */
    static List<Bank> all(long address) {
        int count = Native.banks(address);
        List<Bank> banks = new ArrayList<>(count);
        for (int i = 0; i < count; ++i) banks.add(new Bank(address, i));
        return List.copyOf(banks);
    }

    /** {@return its place in the site, from 0} */
    public int index() {
        return index;
    }

    /** {@return its name in the site} */
    public String name() {
        return name;
    }

    /** {@return the units in which the site gives the limits of the motion, such as "mm"} */
    public String dataUnits() {
        return dataUnits;
    }

    /** {@return the units of the drive signals: "m" of pistons, "rad" of flaps} */
    public String signalUnits() {
        return signalUnits;
    }

    /** {@return the number of paddles} */
    public int size() {
        return paddles.size();
    }

    /** {@return the limits of the motion, and the constants that the site gives for the machine} */
    public Settings limits() {
        return limits;
    }

    /** {@return the paddles, in their order} */
    public List<Paddle> paddles() {
        return paddles;
    }

    @Override
    public String toString() {
        return "bank " + index + " \"" + name + "\"";
    }
}
