// What a test needs to call the exported functions as Java declares them.
#ifndef KELPBOX_TESTS_EXPORTED_NATIVE_H_
#define KELPBOX_TESTS_EXPORTED_NATIVE_H_

#include <jni.h>
#include <tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI.h>

// The Java object of a handle. The library does not look at it.
inline constexpr jobject proxy = nullptr;

// An exported function. In `name` each underscore of the Java method is written `_1`.
#define NATIVE(name) Java_tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI_##name

#endif  // KELPBOX_TESTS_EXPORTED_NATIVE_H_
