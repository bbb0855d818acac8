package tidelab.waves;

import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.nio.file.Path;
import java.util.Map;

/**
 * The head of a library. The linker reports most problems itself, but a truncated library makes it
 * end the JVM, and it explains another processor badly.
 */
final class ElfFile {
    private static final int MAGIC = 0x464c457f;
    private static final int HEADER_SIZE = 64;
    private static final int SEGMENT_SIZE = 56;
    private static final int LOADED_SEGMENT = 1;
    private static final Map<Integer, String> PROCESSORS =
            Map.of(3, "x86", 40, "arm", 62, "x86_64", 183, "aarch64", 243, "riscv64");

    private ElfFile() {}

    /** Why the file cannot be a library of this JVM, or null. */
    static String problem(Path file) throws IOException {
        try (RandomAccessFile library = new RandomAccessFile(file.toFile(), "r")) {
            ByteBuffer header = read(library, 0, HEADER_SIZE);
            if (header.remaining() < HEADER_SIZE || header.getInt(0) != MAGIC) {
                return "not a library";
            }
            int number = header.getShort(18);
            String processor = PROCESSORS.getOrDefault(number, "number " + number);
            boolean known = PROCESSORS.containsValue(Platform.processor());
            if (known && !processor.equals(Platform.processor())) {
                return "for the processor " + processor + ", but this JVM runs on "
                        + Platform.processor();
            }
            long size = sizeOfSegments(library, header);
            return size <= library.length()
                    ? null
                    : "truncated to " + library.length() + " of at least " + size + " bytes";
        }
    }

    /** How long the file has to be for all that the linker maps. */
    private static long sizeOfSegments(RandomAccessFile library, ByteBuffer header)
            throws IOException {
        long start = header.getLong(32);
        int count = Short.toUnsignedInt(header.getShort(56));
        long size = start + (long) count * SEGMENT_SIZE;
        ByteBuffer segments = read(library, start, count * SEGMENT_SIZE);
        for (int at = 0; at + SEGMENT_SIZE <= segments.remaining(); at += SEGMENT_SIZE) {
            if (segments.getInt(at) == LOADED_SEGMENT) {
                size = Math.max(size, segments.getLong(at + 8) + segments.getLong(at + 32));
            }
        }
        return size;
    }

    // Not with a channel: an interrupted thread could not read from it.
    private static ByteBuffer read(RandomAccessFile library, long start, int count)
            throws IOException {
        int there = (int) Math.max(0, Math.min(count, library.length() - start));
        byte[] bytes = new byte[there];
        library.seek(start);
        library.readFully(bytes);
        return ByteBuffer.wrap(bytes).order(ByteOrder.LITTLE_ENDIAN);
    }
}
