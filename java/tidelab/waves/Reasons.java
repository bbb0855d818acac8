package tidelab.waves;

import java.io.IOException;
import java.nio.file.AccessDeniedException;
import java.nio.file.FileSystemException;
import java.nio.file.NoSuchFileException;
import java.nio.file.Path;

/** Why a library does not load: the message of the linker or the system, and what to do. */
final class Reasons {
    private Reasons() {}

    /** @param failure what {@code System.load} threw */
    static String of(Throwable failure, Path file) {
        String reason = String.valueOf(failure.getMessage());
        for (String prefix = file + ": "; reason.startsWith(prefix);) {
            reason = reason.substring(prefix.length());
        }
        return reason + advice(failure, reason);
    }

    private static String advice(Throwable failure, String reason) {
        if (failure instanceof IllegalCallerException) {
            return " (start the JVM with --enable-native-access=tidelab.waves, or"
                    + " =ALL-UNNAMED if kelpbox.jar is on the class path)";
        }
        if (reason.contains("cannot open shared object file")) {
            return " (install this library, which Kelpbox needs)";
        }
        if (reason.contains("failed to map segment")) {
            return " (the file system may be mounted noexec; -Dkelpbox.folder=<folder> chooses"
                    + " where the jar's copy is unpacked)";
        }
        if (reason.contains("already loaded in another classloader")) {
            return " (a JVM binds a file to one class loader; put kelpbox.jar into one that all"
                    + " users share, or use the jar's copy, which each class loader unpacks anew)";
        }
        return "";
    }

    static String of(Exception failure) {
        if (!(failure instanceof FileSystemException)) {
            return String.valueOf(failure.getMessage());
        }
        FileSystemException named = (FileSystemException) failure;
        return named.getFile() + ": " + systemReason(named);
    }

    private static String systemReason(FileSystemException failure) {
        if (failure instanceof NoSuchFileException) {
            return "no such file or folder";
        }
        if (failure instanceof AccessDeniedException) {
            return "access denied";
        }
        return failure.getReason() != null ? failure.getReason()
                                           : failure.getClass().getSimpleName();
    }
}
