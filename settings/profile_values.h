// How one profile value turns into a field and back: the reading conversions (halves rounded to
// even, bad numbers and booleans keeping the field) and the written forms (decimal, True/False).
#pragma once

#include <cstdint>
#include <string>

#include "engine/block.h"
#include "settings/ini_document.h"

namespace velmora::settings {

// Reads the keys of one section into fields. A value that can't be converted leaves its field as
// it was: a boolean that is empty or not a boolean, an integer too large for its field.
class SectionReader {
 public:
  SectionReader(const IniDocument& document, std::string section) : document_(document), section_(std::move(section)) {}

  // As read, at most 254 characters; missing gives empty.
  void String(const char* key, std::string& field) const;
  // The number at the start of the value, rounded half to even; missing or no digits give 0.
  void Int16(const char* key, std::int16_t& field) const;
  void Int32(const char* key, std::int32_t& field) const;
  // "True", "False" or a number (zero false); anything else, empty included, keeps the field.
  void Boolean(const char* key, engine::VBool& field) const;

 private:
  const IniDocument& document_;
  std::string section_;
};

// Writes fields into the keys of one section: strings as they stand, integers in decimal, booleans
// as "True" or "False".
class SectionWriter {
 public:
  SectionWriter(IniDocument& document, std::string section) : document_(document), section_(std::move(section)) {}

  void String(const char* key, const std::string& field) const;
  void Int16(const char* key, std::int16_t field) const;
  void Int32(const char* key, std::int32_t field) const;
  void Boolean(const char* key, engine::VBool field) const;

 private:
  IniDocument& document_;
  std::string section_;
};

}  // namespace velmora::settings
