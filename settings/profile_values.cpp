// The reading conversions of profile values and their written forms.
#include "settings/profile_values.h"

#include "engine/number_text.h"

namespace velmora::settings {

void SectionReader::String(const char* key, std::string& field) const {
  field = document_.Get(section_, key);
}

void SectionReader::Int16(const char* key, std::int16_t& field) const {
  if (const auto value = engine::ReadInt16(document_.Get(section_, key))) field = *value;
}

void SectionReader::Int32(const char* key, std::int32_t& field) const {
  if (const auto value = engine::ReadInt32(document_.Get(section_, key))) field = *value;
}

void SectionReader::Boolean(const char* key, engine::VBool& field) const {
  if (const auto value = engine::ReadBoolean(document_.Get(section_, key)))
    field = *value ? engine::kTrue : engine::kFalse;
}

void SectionWriter::String(const char* key, const std::string& field) const {
  document_.Set(section_, key, field);
}

void SectionWriter::Int16(const char* key, std::int16_t field) const {
  document_.Set(section_, key, std::to_string(field));
}

void SectionWriter::Int32(const char* key, std::int32_t field) const {
  document_.Set(section_, key, std::to_string(field));
}

void SectionWriter::Boolean(const char* key, engine::VBool field) const {
  document_.Set(section_, key, engine::BooleanWord(field != 0));
}

}  // namespace velmora::settings
