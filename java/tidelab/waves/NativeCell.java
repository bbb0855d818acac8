package tidelab.waves;

import java.util.HashSet;
import java.util.Set;
import java.util.concurrent.atomic.AtomicInteger;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;

/**
 * What a {@link Handle} leaves to its cleaner: the address of a native object, and of the Vectors
 * that it reads. It does not refer to the handle, which could otherwise never be collected.
 */
final class NativeCell implements Runnable {
    private static final AtomicInteger LIVE = new AtomicInteger();

    private final Set<Long> vectors = new HashSet<>();
    /** Volatile, so that each call reads it without waiting. The handle's locks order the calls. */
    private volatile long address;

    static int live() {
        return LIVE.get();
    }

    /** Called once, by the thread that makes the handle. */
    synchronized void own(long object) {
        address = object;
        LIVE.incrementAndGet();
    }

    long address() {
        return address;
    }

    synchronized void keep(long vector) {
        vectors.add(vector);
    }

    synchronized void release(long vector) {
        if (vectors.remove(vector))
            KelpboxNativeLibraryJNI.delete_Kelpbox_Vector(vector);
    }

    synchronized int vectors() {
        return vectors.size();
    }

    /** Runs once: when the handle is closed, or when nothing refers to it any more. */
    @Override
    public synchronized void run() {
        if (address == 0)
            return;
        KelpboxNativeLibraryJNI.delete_Kelpbox_Experiment(address);
        address = 0;
        LIVE.decrementAndGet();
        vectors.forEach(KelpboxNativeLibraryJNI::delete_Kelpbox_Vector);
        vectors.clear();
    }
}
