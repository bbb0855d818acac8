#include "host.h"

#include <gtest/gtest.h>

#include <cstring>

std::ostream& operator<<(std::ostream& out, const Thrown& thrown) {
  return out << thrown.class_name << ": " << thrown.message;
}

Host::Host() {
  functions_.FindClass = &find_class;
  functions_.ThrowNew = &throw_new;
  functions_.ExceptionClear = &exception_clear;
  functions_.NewStringUTF = &new_string;
  functions_.GetStringUTFChars = &get_characters;
  functions_.ReleaseStringUTFChars = &release_characters;
  env_.functions = &functions_;
  env_.host = this;
}

Host::~Host() { EXPECT_TRUE(held_.empty()) << "characters not released"; }

jstring Host::text(const std::string& characters) {
  return reinterpret_cast<jstring>(&strings_.emplace_back(String{characters}));
}

std::string Host::characters_of(jstring string) {
  if (string == nullptr) return "(null)";
  return reinterpret_cast<String*>(string)->characters;
}

Thrown Host::take_thrown() {
  const Thrown thrown = pending_ ? *pending_ : Thrown{};
  pending_.reset();
  return thrown;
}

jclass Host::find_class(JNIEnv* env, const char* name) {
  Host& host = host_of(env);
  host.log.push_back(std::string("FindClass ") + name);
  if (host.missing_classes.count(name) != 0) return nullptr;
  return reinterpret_cast<jclass>(&host.classes_.try_emplace(name, Class{name}).first->second);
}

jint Host::throw_new(JNIEnv* env, jclass type, const char* message) {
  Host& host = host_of(env);
  const std::string name = type == nullptr ? "(null)" : reinterpret_cast<Class*>(type)->name;
  host.log.push_back("ThrowNew " + name + " " + message);
  host.pending_ = std::make_unique<Thrown>(Thrown{name, message});
  return 0;
}

void Host::exception_clear(JNIEnv* env) {
  host_of(env).log.push_back("ExceptionClear");
  host_of(env).pending_.reset();
}

jstring Host::new_string(JNIEnv* env, const char* characters) {
  host_of(env).log.push_back(std::string("NewStringUTF ") + characters);
  return host_of(env).text(characters);
}

const char* Host::get_characters(JNIEnv* env, jstring string, jboolean* is_copy) {
  Host& host = host_of(env);
  EXPECT_EQ(is_copy, nullptr);
  host.log.push_back("GetStringUTFChars " + characters_of(string));
  if (host.refuses_characters) return nullptr;
  const std::string text = characters_of(string);
  char* copy = new char[text.size() + 1];
  std::memcpy(copy, text.c_str(), text.size() + 1);
  host.held_.insert(copy);
  return copy;
}

void Host::release_characters(JNIEnv* env, jstring string, const char* characters) {
  Host& host = host_of(env);
  host.log.push_back("ReleaseStringUTFChars " + characters_of(string));
  EXPECT_EQ(host.held_.erase(characters), 1u);
  delete[] characters;
}
