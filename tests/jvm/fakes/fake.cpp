// One library for each combination of definitions; CMakeLists.txt lists them.
#include <jni.h>

#ifdef FAKE_VERSION
extern "C" JNIEXPORT jstring JNICALL Java_tidelab_waves_Native_version(JNIEnv* env, jclass) {
  return env->NewStringUTF(FAKE_VERSION);
}
#endif

#ifdef FAKE_VECTORS
extern "C" JNIEXPORT void JNICALL
Java_tidelab_KelpboxNativeLibrary_KelpboxNativeLibraryJNI_delete_1Kelpbox_1StdVectorDouble(JNIEnv*,
                                                                                           jclass,
                                                                                           jlong) {}
#endif

#ifdef FAKE_UNRELATED
extern "C" JNIEXPORT int unrelated() { return 1; }
#endif

#ifdef FAKE_DEPENDENT
extern "C" int kelpbox_absent();
extern "C" JNIEXPORT int dependent() { return kelpbox_absent(); }
#endif

#ifdef FAKE_OBSERVER
#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <string>

// Writes the permissions of the folder that holds this library, while the library is being loaded.
extern "C" JNIEXPORT jint JNICALL JNI_OnLoad(JavaVM*, void*) {
  Dl_info self{};
  if (dladdr(reinterpret_cast<void*>(&JNI_OnLoad), &self) != 0) {
    const std::string file = self.dli_fname;
    struct stat folder {};
    if (stat(file.substr(0, file.rfind('/')).c_str(), &folder) == 0) {
      std::printf("folder %o, own %d\n", folder.st_mode & 07777u, folder.st_uid == geteuid());
      std::fflush(stdout);
    }
  }
  return JNI_VERSION_10;
}
#endif
