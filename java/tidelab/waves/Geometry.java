package tidelab.waves;

/**
 * Which sides of a tank reflect; a constant of the site.
 *
 * <p>Example: {@code experiment.constants().choice("geometry", Geometry.class) ==
 * Geometry.BothSides}
 */
public enum Geometry implements Choice {
    /** Open on both sides. */
    NoSides,
    /** A wall on the side of positive y. */
    PlusSide,
    /** A wall on the side of negative y. */
    MinusSide,
    /** Walls on both sides. */
    BothSides,
    /** A flume: waves run along the tank only. */
    TwoDimensional;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "Geometry";
    }
}
