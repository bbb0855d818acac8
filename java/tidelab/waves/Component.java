package tidelab.waves;

/**
 * A source of wave energy in a specification. {@link Specification} makes it.
 *
 * <p>Example: {@code Component wave = specification.addSingle();}
 */
public final class Component extends Item {
    /**
     * What a component starts from.
     *
     * <p>Example: {@code component.kind() == Component.Kind.SPECTRUM}
     */
    public enum Kind {
        /** One sine wave. */
        SINGLE,
        /** A density, as formulas of frequency. */
        SPECTRUM,
        /** The surface elevation, as formulas of time. */
        TIME_EXPRESSION,
        /** The surface elevation, as samples. */
        TIME_SERIES,
        /** A list of fronts. */
        FRONTS
    }

    private final Kind kind;
    private final String name;
    private final String text;
    private final long vector;

    /** {@code vector} is the Vector that the native component reads, 0 for none. */
    Component(Specification parent, Kind kind, String name, String text, long vector, long id) {
        super(parent.experiment(), parent, id);
        this.kind = kind;
        this.name = name;
        this.text = text;
        this.vector = vector;
    }

    /** {@return what the component starts from} */
    public Kind kind() {
        return kind;
    }

    /** {@return what the library's messages call it} */
    public String name() {
        return name;
    }

    /** {@return the formulas that it was made from; empty if it was made from something else} */
    public String text() {
        return text;
    }

    @Override
    void end() {
        super.end();
        if (vector != 0)
            experiment().handle().release(vector);
    }

    @Override
    String label() {
        return "component \"" + name + "\"";
    }
}
