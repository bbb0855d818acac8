// The fields of one line of a CSV file.
#ifndef KELPBOX_JOBS_CSV_FIELDS_H_
#define KELPBOX_JOBS_CSV_FIELDS_H_

#include <optional>
#include <string_view>

namespace Jobs::Csv {

// Without blanks, tabs and carriage returns at both ends.
std::string_view trimmed(std::string_view text);

// The first of semicolon, comma, tab and blank that the line has, or nothing.
std::optional<char> separator_in(std::string_view line);

// Removes the next line from the text, and returns it without its line end.
std::string_view take_line(std::string_view& text);

// The fields of a line, one after the other and trimmed. Several blanks are one separator. An empty
// line has one empty field.
class Fields {
 public:
  Fields(std::string_view line, char separator)
      : rest_(separator == ' ' ? trimmed(line) : line), separator_(separator) {}

  bool more() const { return more_; }
  std::string_view next();

 private:
  std::string_view rest_;
  char separator_;
  bool more_ = true;
};

// The number that the field is, which may be infinite or NaN. Nothing for any other text, and for a
// number beyond the range of a double.
std::optional<double> number_in(std::string_view field);

}  // namespace Jobs::Csv

#endif  // KELPBOX_JOBS_CSV_FIELDS_H_
