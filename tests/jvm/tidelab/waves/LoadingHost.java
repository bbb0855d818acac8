package tidelab.waves;

import java.lang.reflect.InvocationTargetException;
import java.net.URL;
import java.net.URLClassLoader;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import java.util.TreeSet;
import java.util.concurrent.ConcurrentSkipListSet;
import java.util.concurrent.CountDownLatch;
import java.util.stream.Stream;
import tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI;
import tidelab.waves.component.WaveSynthesisException;

/** A host for a {@link FreshJvm}. It takes the steps that its arguments name, in their order. */
final class LoadingHost {
    private LoadingHost() {}

    public static void main(String[] steps) throws Exception {
        for (String step : steps) {
            String[] words = step.split("=", 3);
            try {
                take(words[0], Arrays.copyOfRange(words, 1, words.length));
            } catch (IllegalStateException e) {
                System.out.println(e.getClass().getSimpleName() + ": " + e.getMessage());
            }
        }
    }

    private static void take(String step, String[] arguments) throws Exception {
        switch (step) {
            case "load":
                Kelpbox.load();
                System.out.println("loaded " + Kelpbox.location());
                break;
            case "loadFile":
                Kelpbox.load(Path.of(arguments[0]));
                System.out.println("loaded " + Kelpbox.location());
                break;
            case "loadItself":
                System.load(arguments[0]);
                break;
            case "version":
                System.out.println("version " + Kelpbox.version());
                break;
            case "set":
                System.setProperty(arguments[0], arguments[1]);
                break;
            case "clear":
                System.clearProperty(arguments[0]);
                break;
            case "interrupt":
                Thread.currentThread().interrupt();
                break;
            case "interrupted":
                System.out.println("interrupted " + Thread.interrupted());
                break;
            case "list":
                list(Path.of(arguments[0]));
                break;
            case "vector":
                vector();
                break;
            case "loader":
                loader(arguments);
                break;
            case "formula":
                formula(arguments[0]);
                break;
            case "threads":
                threads(Integer.parseInt(arguments[0]));
                break;
            default:
                throw new IllegalArgumentException(step);
        }
    }

    private static void list(Path folder) throws Exception {
        try (Stream<Path> files = Files.list(folder)) {
            TreeSet<String> names = new TreeSet<>();
            files.forEach(file -> names.add(file.getFileName().toString()));
            System.out.println("list " + names);
        }
    }

    /** The functions of both packages come from the loaded library. */
    private static void vector() {
        long vector = KelpboxNativeLibraryJNI.new_Kelpbox_StdVectorDouble__SWIG_1(3);
        System.out.println(
                "vector " + KelpboxNativeLibraryJNI.Kelpbox_StdVectorDouble_size(vector, null));
        KelpboxNativeLibraryJNI.delete_Kelpbox_StdVectorDouble(vector);
    }

    private static void formula(String text) {
        try {
            System.out.println(Experiment.formulaParameters(text));
        } catch (WaveSynthesisException e) {
            System.out.println(e.getMessage());
        }
    }

    /** Loads the library in a new class loader, from this file or from any place. */
    private static void loader(String[] file) throws Exception {
        URL[] jar = {FreshJvm.JAR.toUri().toURL()};
        ClassLoader loader = new URLClassLoader(jar, ClassLoader.getPlatformClassLoader());
        Class<?> kelpbox = loader.loadClass(Kelpbox.class.getName());
        try {
            if (file.length > 0) {
                kelpbox.getMethod("load", Path.class).invoke(null, Path.of(file[0]));
            }
            System.out.println("loaded " + kelpbox.getMethod("location").invoke(null));
        } catch (InvocationTargetException e) {
            System.out.println(e.getCause().getMessage());
        }
    }

    private static void threads(int count) throws Exception {
        ConcurrentSkipListSet<String> locations = new ConcurrentSkipListSet<>();
        CountDownLatch start = new CountDownLatch(1);
        Thread[] threads = new Thread[count];
        for (int i = 0; i < count; ++i) {
            threads[i] = new Thread(() -> {
                try {
                    start.await();
                    Kelpbox.load();
                    locations.add(Kelpbox.location().toString());
                } catch (InterruptedException e) {
                    locations.add("interrupted");
                }
            });
            threads[i].start();
        }
        start.countDown();
        for (Thread thread : threads) {
            thread.join();
        }
        System.out.println("locations " + locations.size());
    }
}
