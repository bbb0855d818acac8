// Strings of Java and of the library. The library's are UTF-8, although names from scripts and
// files can hold any bytes. The virtual machine's functions read and write modified UTF-8, which
// has other forms of the character NUL and of characters above U+FFFF.
#ifndef KELPBOX_EXPORTED_HOST_TEXT_H_
#define KELPBOX_EXPORTED_HOST_TEXT_H_

#include <jni.h>

#include <string>
#include <string_view>
#include <vector>

namespace Kelpbox {

// Bytes that are not UTF-8 become U+FFFD, the replacement character.
std::string modified_utf8(std::string_view text);

// UTF-16 as UTF-8. A surrogate without its other half becomes U+FFFD.
std::string utf8_of(const std::u16string& text);

// Each throws PendingException.
jstring host_text(JNIEnv* env, std::string_view text);
// Of a string that is not null.
std::string text_of(JNIEnv* env, jstring text);
// The bytes of the array. Throws std::string for null.
std::string text_of(JNIEnv* env, jbyteArray bytes);

// An array of strings.
jobjectArray host_texts(JNIEnv* env, const std::vector<std::string>& texts);

}  // namespace Kelpbox

#endif  // KELPBOX_EXPORTED_HOST_TEXT_H_
