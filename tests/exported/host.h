// A host without a virtual machine: an environment with the six operations that the boundary may
// use. Any other operation is a null pointer, and using it ends the test. array_host.h adds those
// that only the functions of tidelab.waves.Native use.
#ifndef KELPBOX_TESTS_EXPORTED_HOST_H_
#define KELPBOX_TESTS_EXPORTED_HOST_H_

#include <jni.h>

#include <deque>
#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <vector>

struct Thrown {
  std::string class_name;
  std::string message;
  bool operator==(const Thrown&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Thrown& thrown);

class Host {
 public:
  Host();
  ~Host();
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  JNIEnv* env() { return &env_; }

  // A string of the host's, alive as long as the host.
  jstring text(const std::string& characters);
  static std::string characters_of(jstring string);

  // Calls an exported function: a text becomes a string of the host's.
  template <typename Result, typename... Parameters, typename... Arguments>
  Result call(Result (*function)(JNIEnv*, jclass, Parameters...), Arguments... arguments) {
    return function(env(), nullptr, host_value(arguments)...);
  }

  // The pending exception, which is then no longer pending. Empty when there is none.
  Thrown take_thrown();

  // The calls that the library made to the environment, in order, such as "FindClass java/...".
  std::vector<std::string> log;
  std::set<std::string> missing_classes;
  bool refuses_characters = false;

 protected:
  struct String {
    std::string characters;
  };
  struct Class {
    std::string name;
  };
  struct Environment : JNIEnv {
    Host* host;
  };

  static Host& host_of(JNIEnv* env) { return *static_cast<Environment*>(env)->host; }

  template <typename T>
  T host_value(T value) {
    return value;
  }
  jstring host_value(const char* characters) { return text(characters); }
  jstring host_value(std::string characters) { return text(characters); }

  static jclass JNICALL find_class(JNIEnv* env, const char* name);
  static jint JNICALL throw_new(JNIEnv* env, jclass type, const char* message);
  static void JNICALL exception_clear(JNIEnv* env);
  static jstring JNICALL new_string(JNIEnv* env, const char* characters);
  static const char* JNICALL get_characters(JNIEnv* env, jstring string, jboolean* is_copy);
  static void JNICALL release_characters(JNIEnv* env, jstring string, const char* characters);

  JNINativeInterface_ functions_{};
  std::unique_ptr<Thrown> pending_;

 private:
  Environment env_{};
  std::deque<String> strings_;
  std::map<std::string, Class> classes_;
  std::set<const char*> held_;  // characters handed out and not yet released
};

#endif  // KELPBOX_TESTS_EXPORTED_HOST_H_
