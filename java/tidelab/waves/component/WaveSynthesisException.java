package tidelab.waves.component;

/** A failure of the wave library. The message is the library's own. */
public class WaveSynthesisException extends RuntimeException {
    private static final long serialVersionUID = 1L;

    /**
     * The library throws its failures with this constructor.
     *
     * @param message the library's message
     */
    public WaveSynthesisException(String message) {
        super(message);
    }
}
