package tidelab.waves.component;

/** A failure of the wave library, with the library's own words as its message. */
public class WaveSynthesisException extends RuntimeException {

    private static final long serialVersionUID = 1L;

    public WaveSynthesisException(String message) {
        super(message);
    }
}
