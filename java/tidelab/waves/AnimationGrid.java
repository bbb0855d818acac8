package tidelab.waves;

/** The points of an animation in space and time, as the library has fitted them. */
record AnimationGrid(Axis x, Axis y, double rate, int frames) {
    /** Points at equal steps in m. The step of a single point is infinite. */
    record Axis(double min, double max, double step, long count) {
        static Axis of(Settings settings, String name) {
            double min = settings.get(name + "_min", "m");
            double max = settings.get(name + "_max", "m");
            double step = settings.get(name + "_step", "m");
            return new Axis(min, max, step, 1 + Math.round((max - min) / step));
        }

        /** The last point is never beyond the end of the range. */
        double at(int index) {
            return index == 0 ? min : Math.min(index * step + min, max);
        }
    }

    /** A frame must fit into an array. Some virtual machines keep a few elements for themselves. */
    private static final long MOST_POINTS = Integer.MAX_VALUE - 8;

    static AnimationGrid of(Settings settings, long frames) {
        Axis x = Axis.of(settings, "x");
        Axis y = Axis.of(settings, "y");
        if (x.count > MOST_POINTS / y.count) {
            throw new IllegalArgumentException("a frame of " + x.count + " by " + y.count
                    + " points is more than a Java array can hold");
        }
        return new AnimationGrid(x, y, settings.get("rate", "Hz"), Math.toIntExact(frames));
    }
}
