import static tidelab.KelpboxNativeLibrary.KelpboxNativeLibraryJNI.*;

/** Short forms of the calls on parameters and vectors. */
final class Native {
    private Native() {}

    static void number(long params, String name, double value, String units) {
        Kelpbox_Params_insert__SWIG_0(params, null, name, value, units);
    }

    static void choice(long params, String name, String member, String type) {
        Kelpbox_Params_insert__SWIG_1(params, null, name, member, type);
    }

    static double[] array(long vector) {
        double[] result = new double[(int) Kelpbox_StdVectorDouble_size(vector, null)];
        for (int i = 0; i < result.length; ++i) {
            result[i] = Kelpbox_StdVectorDouble_get(vector, null, i);
        }
        return result;
    }
}
