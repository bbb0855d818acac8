// Reports of the site model, and the logs that receive them.
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

// One report: a level, the path of the object that it is about, and a message. The site model
// throws it by value. The strings of `path` are owned elsewhere and must outlive it.
struct LogItm {
  LogItm(std::string name, std::uint32_t level);
  LogItm(const std::string* path_entry, std::string name, std::uint32_t level);

  // Append to the message. An integer is written in decimal, or with `hex` 1 in hexadecimal with
  // a "0x". A real is written in the stream's default form.
  LogItm& add(const std::string& part);
  LogItm& add(const char* part);
  LogItm& add(unsigned number);
  LogItm& add(double number);

  std::vector<const std::string*> path;  // outermost object first
  std::string name;                      // a heading, such as "General"; not printed
  std::uint32_t level;
  std::string text;  // the message
  std::uint32_t hex = 0;
};

// Writes "<path entry>::" for each entry, then "<level>::<message>".
std::ostream& operator<<(std::ostream& out, const LogItm& item);

class Log {
 public:
  virtual ~Log() = default;
  virtual void message(float time, const LogItm& item) = 0;
  virtual void message(const LogItm& item) = 0;
  // Called once, when the log is attached.
  virtual void build() = 0;
};

// Writes each report to a stream at once, one to a line. The stream is not owned, and it is not
// protected against several threads.
class SimpleLog : public Log {
 public:
  explicit SimpleLog(std::ostream& out) : out_(&out) {}
  void message(float time, const LogItm& item) override;
  void message(const LogItm& item) override;
  void build() override {}

 private:
  std::ostream* out_;
};

// As SimpleLog, to the stream for progress lines.
class ProgressLog : public Log {
 public:
  void message(float time, const LogItm& item) override;
  void message(const LogItm& item) override;
  void build() override {}
};

}  // namespace Script

#endif  // KELPBOX_SCRIPT_LOG_H_
