package tidelab.waves;

import java.util.Collection;
import java.util.Comparator;
import java.util.Locale;

/** Explains a name that does not exist by the nearest one that does. */
final class Nearest {
    private Nearest() {}

    /** Such as {@code "freq" is not a setting of Single; did you mean "f"? It has: a, f}. */
    static String explain(String name, String owner, Collection<String> known) {
        String start = "\"" + name + "\" is not a setting of " + owner;
        if (known.isEmpty())
            return start + ", which has none";
        String nearest =
                known.stream()
                        .min(Comparator.comparingInt(candidate -> distance(name, candidate)))
                        .orElseThrow();
        return start + "; did you mean \"" + nearest + "\"? It has: " + String.join(", ", known);
    }

    /** How many characters must be inserted, removed or replaced; upper case counts as lower. */
    static int distance(String a, String b) {
        String from = a.toLowerCase(Locale.ROOT);
        String to = b.toLowerCase(Locale.ROOT);
        int[] row = new int[to.length() + 1];
        for (int j = 0; j <= to.length(); ++j) row[j] = j;
        for (int i = 1; i <= from.length(); ++i) {
            int diagonal = row[0];
            row[0] = i;
            for (int j = 1; j <= to.length(); ++j) {
                int replaced = diagonal + (from.charAt(i - 1) == to.charAt(j - 1) ? 0 : 1);
                diagonal = row[j];
                row[j] = Math.min(replaced, 1 + Math.min(row[j], row[j - 1]));
            }
        }
        return row[to.length()];
    }
}
