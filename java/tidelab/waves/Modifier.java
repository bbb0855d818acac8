package tidelab.waves;

/**
 * A change of the fronts of a specification: of their amplitudes, directions or phases. {@link
 * Specification#addModifier} makes it.
 *
 * <p>It may be set again, with full effect: the native modifier, which remembers its first values,
 * is then replaced by a new one.
 *
 * <p>Example: {@code modifier.set("ran_gen", RanGen.FullRandom, "seed", 18);}
 */
public final class Modifier extends Item {
    private final ModifierType type;
    private final String text;

    Modifier(Specification parent, ModifierType type, String text, long address) {
        super(parent.experiment(), parent, add(address, parent, type, text));
        this.type = type;
        this.text = text;
    }

    /** {@return the kind of modifier} */
    public ModifierType type() {
        return type;
    }

    /** {@return the formulas that it was made from} */
    public String text() {
        return text;
    }

    private static long add(long address, Item parent, ModifierType type, String text) {
        return Native.addModifier(
                address, parent.id(), SiteOptions.bytes(type.member()), SiteOptions.bytes(text));
    }

    @Override
    void beforeSet(long address, boolean again) {
        if (!again)
            return;
        experiment().handle().change(same -> {
            Native.remove(address, id());
            try {
                replaced(add(address, parent(), type, text));
            } catch (RuntimeException failure) {
                experiment().forget(this);
                end();
                throw failure;
            }
            return null;
        });
    }

    @Override
    String label() {
        return "modifier " + type.member();
    }
}
