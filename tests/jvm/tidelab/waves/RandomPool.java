package tidelab.waves;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Random;

/**
 * What random calls have returned, by class, for later calls of all threads. It keeps a few of each
 * class and forgets the others, whatever their state.
 */
final class RandomPool {
    private static final int MOST = 12;

    private final Map<Class<?>, List<Object>> objects = new HashMap<>();

    synchronized void add(Object object, Random random) {
        List<Object> same = objects.computeIfAbsent(object.getClass(), key -> new ArrayList<>());
        if (same.size() < MOST) {
            same.add(object);
        } else {
            same.set(random.nextInt(MOST), object);
        }
    }

    /** Any object of the class or one below it; null if there is none. */
    synchronized<T> T any(Class<T> type, Random random) {
        List<Object> found = new ArrayList<>();
        objects.forEach((kind, same) -> {
            if (type.isAssignableFrom(kind))
                found.addAll(same);
        });
        return found.isEmpty() ? null : type.cast(found.get(random.nextInt(found.size())));
    }

    synchronized void clear() {
        objects.clear();
    }
}
