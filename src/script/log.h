// Reports of the site model: a level, the names of the objects on the way, and a text.
#ifndef KELPBOX_SCRIPT_LOG_H_
#define KELPBOX_SCRIPT_LOG_H_

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace Script {

namespace Level {
inline constexpr std::uint32_t fatal = 0;
inline constexpr std::uint32_t error = 1;
inline constexpr std::uint32_t warning = 2;
inline constexpr std::uint32_t alert = 3;
inline constexpr std::uint32_t state = 4;
inline constexpr std::uint32_t info = 5;
inline constexpr std::uint32_t detail = 6;
}  // namespace Level

// One report. It is thrown by value where the site model finds a problem. The strings of
// `path` are owned elsewhere and must outlive it.
struct LogItm {
  LogItm(std::string name, std::uint32_t level);
  LogItm(const std::string* path_entry, std::string name, std::uint32_t level);

  // Append to `text`. A number is written in decimal, or with `hex` 1 in hexadecimal with its
  // base shown. A real is written as a stream writes it by default.
  LogItm& add(const std::string& part);
  LogItm& add(const char* part);
  LogItm& add(unsigned number);
  LogItm& add(double number);

  std::vector<const std::string*> path;  // outermost first
  std::string name;                      // a heading, such as "General"; not printed
  std::uint32_t level;
  std::string text;
  std::uint32_t hex = 0;
};

// Each path entry and "::", the level's word, "::", the text.
std::ostream& operator<<(std::ostream& out, const LogItm& item);

// Where reports go.
class Log {
 public:
  virtual ~Log() = default;
  virtual void message(float time, const LogItm& item) = 0;
  virtual void message(const LogItm& item) = 0;
  // Called once, when the log is attached.
  virtual void build() = 0;
};

// Writes each report to a stream at once, a line each, and keeps nothing. The stream is not
// owned, and not guarded.
class SimpleLog : public Log {
 public:
  explicit SimpleLog(std::ostream& out) : out_(&out) {}
  void message(float time, const LogItm& item) override;
  void message(const LogItm& item) override;
  void build() override {}

 private:
  std::ostream* out_;
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_LOG_H_
