package tidelab.KelpboxNativeLibrary;

/**
 * The native functions of {@code libKelpboxSwig.so}. The header that the library compiles against
 * is generated from these declarations.
 *
 * <p>A {@code long} that is named {@code self} or after a class is the address of a native object.
 * The {@code Object} after it is the host's proxy, which the library does not use. No address is
 * checked: {@code docs/native-ownership.md} says who owns each object and how long it is valid.
 * Unsigned numbers are passed as {@code long}.
 */
public final class KelpboxNativeLibraryJNI {
    private KelpboxNativeLibraryJNI() {}

    // StdVectorDouble
    public static native long new_Kelpbox_StdVectorDouble__SWIG_0();
    public static native long new_Kelpbox_StdVectorDouble__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorDouble(long self);
    public static native long Kelpbox_StdVectorDouble_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorDouble_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorDouble_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorDouble_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorDouble_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorDouble_add(long self, Object proxy, double value);
    public static native double Kelpbox_StdVectorDouble_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorDouble_set(
            long self, Object proxy, int index, double value);

    // StdVectorFloat
    public static native long new_Kelpbox_StdVectorFloat__SWIG_0();
    public static native long new_Kelpbox_StdVectorFloat__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorFloat(long self);
    public static native long Kelpbox_StdVectorFloat_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorFloat_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorFloat_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorFloat_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorFloat_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorFloat_add(long self, Object proxy, float value);
    public static native float Kelpbox_StdVectorFloat_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorFloat_set(
            long self, Object proxy, int index, float value);

    // StdVectorUInt
    public static native long new_Kelpbox_StdVectorUInt__SWIG_0();
    public static native long new_Kelpbox_StdVectorUInt__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorUInt(long self);
    public static native long Kelpbox_StdVectorUInt_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorUInt_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorUInt_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorUInt_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorUInt_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorUInt_add(long self, Object proxy, long value);
    public static native long Kelpbox_StdVectorUInt_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorUInt_set(
            long self, Object proxy, int index, long value);

    // StdVectorShort
    public static native long new_Kelpbox_StdVectorShort__SWIG_0();
    public static native long new_Kelpbox_StdVectorShort__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorShort(long self);
    public static native long Kelpbox_StdVectorShort_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorShort_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorShort_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorShort_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorShort_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorShort_add(long self, Object proxy, short value);
    public static native short Kelpbox_StdVectorShort_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorShort_set(
            long self, Object proxy, int index, short value);

    // StdVectorString
    public static native long new_Kelpbox_StdVectorString__SWIG_0();
    public static native long new_Kelpbox_StdVectorString__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorString(long self);
    public static native long Kelpbox_StdVectorString_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorString_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorString_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorString_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorString_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorString_add(long self, Object proxy, String value);
    public static native String Kelpbox_StdVectorString_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorString_set(
            long self, Object proxy, int index, String value);

    // StdVectorParam
    public static native long new_Kelpbox_StdVectorParam__SWIG_0();
    public static native long new_Kelpbox_StdVectorParam__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorParam(long self);
    public static native long Kelpbox_StdVectorParam_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorParam_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorParam_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorParam_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorParam_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorParam_add(
            long self, Object proxy, long value, Object valueProxy);
    public static native long Kelpbox_StdVectorParam_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorParam_set(
            long self, Object proxy, int index, long value, Object valueProxy);

    // StdVectorFront
    public static native long new_Kelpbox_StdVectorFront__SWIG_0();
    public static native long new_Kelpbox_StdVectorFront__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorFront(long self);
    public static native long Kelpbox_StdVectorFront_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorFront_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorFront_reserve(long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorFront_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorFront_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorFront_add(
            long self, Object proxy, long value, Object valueProxy);
    public static native long Kelpbox_StdVectorFront_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorFront_set(
            long self, Object proxy, int index, long value, Object valueProxy);

    // StdVectorDisplayFront
    public static native long new_Kelpbox_StdVectorDisplayFront__SWIG_0();
    public static native long new_Kelpbox_StdVectorDisplayFront__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorDisplayFront(long self);
    public static native long Kelpbox_StdVectorDisplayFront_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorDisplayFront_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorDisplayFront_reserve(
            long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorDisplayFront_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorDisplayFront_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorDisplayFront_add(
            long self, Object proxy, long value, Object valueProxy);
    public static native long Kelpbox_StdVectorDisplayFront_get(long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorDisplayFront_set(
            long self, Object proxy, int index, long value, Object valueProxy);

    // StdVectorTransferFront
    public static native long new_Kelpbox_StdVectorTransferFront__SWIG_0();
    public static native long new_Kelpbox_StdVectorTransferFront__SWIG_1(long count);
    public static native void delete_Kelpbox_StdVectorTransferFront(long self);
    public static native long Kelpbox_StdVectorTransferFront_size(long self, Object proxy);
    public static native long Kelpbox_StdVectorTransferFront_capacity(long self, Object proxy);
    public static native void Kelpbox_StdVectorTransferFront_reserve(
            long self, Object proxy, long count);
    public static native boolean Kelpbox_StdVectorTransferFront_isEmpty(long self, Object proxy);
    public static native void Kelpbox_StdVectorTransferFront_clear(long self, Object proxy);
    public static native void Kelpbox_StdVectorTransferFront_add(
            long self, Object proxy, long value, Object valueProxy);
    public static native long Kelpbox_StdVectorTransferFront_get(
            long self, Object proxy, int index);
    public static native void Kelpbox_StdVectorTransferFront_set(
            long self, Object proxy, int index, long value, Object valueProxy);

    // Param
    public static native long new_Kelpbox_Param();
    public static native void delete_Kelpbox_Param(long self);
    public static native String Kelpbox_Param_name(long self, Object proxy);
    public static native double Kelpbox_Param_value(long self, Object proxy);
    public static native String Kelpbox_Param_units(long self, Object proxy);
    public static native boolean Kelpbox_Param_is_enum(long self, Object proxy);
    public static native String Kelpbox_Param_enum_type(long self, Object proxy);
    public static native String Kelpbox_Param_enum_value(long self, Object proxy);
    public static native double Kelpbox_Param_convert(String from, String to);
    public static native long Kelpbox_Param_alternate(String units);

    // Params
    public static native long new_Kelpbox_Params();
    public static native void delete_Kelpbox_Params(long self);
    public static native void Kelpbox_Params_clear(long self, Object proxy);
    public static native double Kelpbox_Params_get(
            long self, Object proxy, String name, String units);
    public static native long Kelpbox_Params_get_enum(
            long self, Object proxy, String name, String type);
    public static native void Kelpbox_Params_insert__SWIG_0(
            long self, Object proxy, String name, double value, String units);
    public static native void Kelpbox_Params_insert__SWIG_1(
            long self, Object proxy, String name, String member, String type);
    public static native long Kelpbox_Params_param_list(long self, Object proxy);
    public static native long Kelpbox_Params_comment_size(long self, Object proxy);
    public static native String Kelpbox_Params_comment(long self, Object proxy, long index);
    public static native void Kelpbox_Params_print(long self, Object proxy);

    // Vector
    public static native long new_Kelpbox_Vector(
            String label, String units, long data, Object dataProxy);
    public static native void delete_Kelpbox_Vector(long self);
    public static native long Kelpbox_Vector_size(long self, Object proxy);
    public static native double Kelpbox_Vector_getValue(long self, Object proxy, int index);

    // Front, DisplayFront, TransferFront, Position
    public static native long new_Kelpbox_Front__SWIG_0();
    public static native long new_Kelpbox_Front__SWIG_1(
            double freq, double amp, double angle, double phase);
    public static native void delete_Kelpbox_Front(long self);
    public static native double Kelpbox_Front_get_amp(long self, Object proxy);
    public static native double Kelpbox_Front_get_angle(long self, Object proxy);
    public static native double Kelpbox_Front_get_phase(long self, Object proxy);
    public static native double Kelpbox_Front_get_freq(long self, Object proxy);
    public static native long new_Kelpbox_DisplayFront(
            double freq, double amp, double angle, double phase);
    public static native void delete_Kelpbox_DisplayFront(long self);
    public static native double Kelpbox_DisplayFront_get_amp(long self, Object proxy);
    public static native double Kelpbox_DisplayFront_get_angle(long self, Object proxy);
    public static native double Kelpbox_DisplayFront_get_phase(long self, Object proxy);
    public static native double Kelpbox_DisplayFront_get_freq(long self, Object proxy);
    public static native long new_Kelpbox_TransferFront();
    public static native void delete_Kelpbox_TransferFront(long self);
    public static native double Kelpbox_TransferFront_get_amp(long self, Object proxy);
    public static native double Kelpbox_TransferFront_get_angle(long self, Object proxy);
    public static native double Kelpbox_TransferFront_get_phase(long self, Object proxy);
    public static native long Kelpbox_TransferFront_get_harmonic(long self, Object proxy);
    public static native long new_Kelpbox_Position();
    public static native void delete_Kelpbox_Position(long self);
    public static native double Kelpbox_Position_get_x(long self, Object proxy);
    public static native double Kelpbox_Position_get_y(long self, Object proxy);
    public static native double Kelpbox_Position_get_t(long self, Object proxy);

    // RunData
    public static native long new_Kelpbox_RunData();
    public static native void delete_Kelpbox_RunData(long self);
    public static native double Kelpbox_RunData_value(long self, Object proxy);
    public static native long Kelpbox_RunData_size(long self, Object proxy);
    public static native double Kelpbox_RunData_freq(long self, Object proxy, long harmonic);
    public static native long Kelpbox_RunData_wave_num(long self, Object proxy, double freq);
    public static native long Kelpbox_RunData_harmonic(long self, Object proxy, long type);
    public static native boolean Kelpbox_RunData_is_inrange(long self, Object proxy, double freq);
    public static native boolean Kelpbox_RunData_dalrymple(long self, Object proxy);

    // Experiment: life and site
    public static native long new_Kelpbox_Experiment__SWIG_0();
    public static native long new_Kelpbox_Experiment__SWIG_1(String name);
    public static native void delete_Kelpbox_Experiment(long self);
    public static native void Kelpbox_Experiment_initialise(long self, Object proxy, String file);
    public static native String Kelpbox_Experiment_context_name(long self, Object proxy);
    public static native String Kelpbox_Experiment_context_string(long self, Object proxy);
    public static native void Kelpbox_Experiment_get_consts(
            long self, Object proxy, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_query(
            long self, Object proxy, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_query__SWIG_0(
            long self, Object proxy, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_set(
            long self, Object proxy, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_set__SWIG_0(
            long self, Object proxy, long params, Object paramsProxy);
    public static native long Kelpbox_Experiment_profile(
            long self, Object proxy, long params, Object paramsProxy);
    public static native long Kelpbox_Experiment_paddle_banks(long self, Object proxy);
    public static native long Kelpbox_Experiment_paddle_bank_size(
            long self, Object proxy, long bank);
    public static native String Kelpbox_Experiment_paddle_bank_info(
            long self, Object proxy, long bank, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_paddle_info(
            long self, Object proxy, long bank, long paddle, long params, Object paramsProxy);

    // Experiment: the tree of waves
    public static native long Kelpbox_Experiment_add_definition(
            long self, Object proxy, String name);
    public static native long Kelpbox_Experiment_add_specification(
            long self, Object proxy, long id);
    public static native long Kelpbox_Experiment_add_fronts(
            long self, Object proxy, long id, long fronts, Object frontsProxy);
    public static native long Kelpbox_Experiment_add_single(long self, Object proxy, long id);
    public static native long Kelpbox_Experiment_add_spectrum(
            long self, Object proxy, long id, String name, String text);
    public static native long Kelpbox_Experiment_add_timeexp(
            long self, Object proxy, long id, String name, String text);
    public static native long Kelpbox_Experiment_add_timeseries(
            long self, Object proxy, long id, long vector, Object vectorProxy);
    public static native long Kelpbox_Experiment_add_modifier(
            long self, Object proxy, long id, String type, String text);
    public static native void Kelpbox_Experiment_query__SWIG_1(
            long self, Object proxy, long id, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_set__SWIG_1(
            long self, Object proxy, long id, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_remove(long self, Object proxy, long id);
    public static native void Kelpbox_Experiment_clear(long self, Object proxy);
    public static native void Kelpbox_Experiment_get_params(
            String text, long params, Object paramsProxy);

    // Experiment: runs
    public static native void Kelpbox_Experiment_run_build(long self, Object proxy, long id);
    public static native long Kelpbox_Experiment_run_size(long self, Object proxy, long id);
    public static native long Kelpbox_Experiment_repeat(long self, Object proxy, long id);
    public static native long Kelpbox_Experiment_position(
            long self, Object proxy, long id, long index);
    public static native long Kelpbox_Experiment_fronts__SWIG_0(
            long self, Object proxy, long id, long index);
    public static native long Kelpbox_Experiment_fronts__SWIG_1(
            long self, Object proxy, long id, boolean merged);
    public static native long Kelpbox_Experiment_fronts__SWIG_2(long self, Object proxy, long id);
    public static native long Kelpbox_Experiment_messages(long self, Object proxy, long id);
    public static native void Kelpbox_Experiment_paddle_motion_build(
            long self, Object proxy, long id, long params, Object paramsProxy);
    public static native long Kelpbox_Experiment_paddle_motion_data(
            long self, Object proxy, long id, long bank, long paddle);
    public static native void Kelpbox_Experiment_paddle_motion_stats(
            long self, Object proxy, long id, long bank, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_animate_init(
            long self, Object proxy, long id, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_animate_build(
            long self, Object proxy, long id, long params, Object paramsProxy);
    public static native void Kelpbox_Experiment_animate_build_slice(long self, Object proxy,
            long id, long params, Object paramsProxy, long first, long last);
    public static native long Kelpbox_Experiment_animate_data(
            long self, Object proxy, long id, long index);
    public static native long Kelpbox_Experiment_animate_size(long self, Object proxy, long id);
    public static native double Kelpbox_Experiment_animate_progress(
            long self, Object proxy, long id);
    public static native boolean Kelpbox_Experiment_animate_ready(long self, Object proxy, long id);
    public static native void Kelpbox_Experiment_animate_stop(long self, Object proxy, long id);
    public static native void Kelpbox_Experiment_animate_free(long self, Object proxy, long id);
    public static native void Kelpbox_Experiment_twod_build(
            long self, Object proxy, long id, long params, Object paramsProxy);
    public static native long Kelpbox_Experiment_twod_data(
            long self, Object proxy, long id, int which);
    public static native void Kelpbox_Experiment_twod_stats(
            long self, Object proxy, long id, long params, Object paramsProxy);

    // Analysis
    public static native long new_Kelpbox_Analysis();
    public static native void delete_Kelpbox_Analysis(long self);
    public static native void Kelpbox_Analysis_initialise(long self, Object proxy, String file);
    public static native void Kelpbox_Analysis_get_consts(
            long self, Object proxy, long params, Object paramsProxy);
    public static native void Kelpbox_Analysis_query(
            long self, Object proxy, long params, Object paramsProxy);
    public static native void Kelpbox_Analysis_set(
            long self, Object proxy, long params, Object paramsProxy);
    public static native long Kelpbox_Analysis_profile(
            long self, Object proxy, long params, Object paramsProxy);
    public static native long Kelpbox_Analysis_add_series(long self, Object proxy, long params,
            Object paramsProxy, long samples, Object samplesProxy);
    public static native long Kelpbox_Analysis_create_set(long self, Object proxy, long params,
            Object paramsProxy, long series, Object seriesProxy);
    public static native long Kelpbox_Analysis_create_process(
            long self, Object proxy, long set, long kind);
    public static native void Kelpbox_Analysis_get_results(long self, Object proxy, long process,
            long settings, Object settingsProxy, long out, Object outProxy);
    public static native long Kelpbox_Analysis_get_data(
            long self, Object proxy, long process, long params, Object paramsProxy);
    public static native void Kelpbox_Analysis_clear(long self, Object proxy);
}
