package tidelab.waves;

/**
 * Window functions for spectra, in the library's spelling. No calculation uses one at present.
 *
 * <p>Example: {@code Settings.of("window", Window.Hamming)}
 */
public enum Window implements Choice {
    /** No window. */
    Null,
    /** The triangle that ends in zeros. */
    Barlett,
    /** Mixture of the triangle and a raised cosine. */
    BarlettHann,
    /** Three cosine terms. */
    Blackman,
    /** Four cosine terms, lowest side lobes. */
    BlackmanHarris,
    /** Four cosine terms, between its two namesakes. */
    BlackmanNuttall,
    /** Raised cosine on a pedestal. */
    Hamming,
    /** Four cosine terms with a continuous slope. */
    Nuttall,
    /** The triangle that ends above zero. */
    Triangular,
    /** All weights are 1. */
    Rectangular;

    @Override
    public String member() {
        return name();
    }

    @Override
    public String type() {
        return "Window";
    }
}
