// Parsing, lookup and in-place editing of ini text.
#include "settings/ini_document.h"

#include <algorithm>
#include <cctype>

namespace velmora::settings {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lower;
}

// The name inside "[...]" when `text` is a section header.
bool HeaderName(std::string_view text, std::string_view& name) {
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty() || trimmed.front() != '[') return false;
  std::string_view inner = trimmed.substr(1);
  if (const std::size_t close = inner.find(']'); close != std::string_view::npos) inner = inner.substr(0, close);
  name = Trim(inner);
  return true;
}

// The key name of a "key=value" line; false for lines without an equals sign or without a name.
bool KeyName(std::string_view text, std::string_view& name) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) return false;
  name = Trim(text.substr(0, equals));
  return !name.empty();
}

}  // namespace

IniDocument::IniDocument(std::string_view content) {
  bool newline_seen = false;
  std::size_t start = 0;
  while (start < content.size()) {
    const std::size_t end = content.find('\n', start);
    Line line;
    if (end == std::string_view::npos) {
      line.text = std::string(content.substr(start));
      start = content.size();
    } else {
      line.text = std::string(content.substr(start, end - start));
      line.ending = "\n";
      if (!line.text.empty() && line.text.back() == '\r') {
        line.text.pop_back();
        line.ending = "\r\n";
      }
      start = end + 1;
      if (!newline_seen) newline_ = line.ending;
      newline_seen = true;
    }

    std::string_view name;
    if (HeaderName(line.text, name)) {
      Section section;
      section.name = std::string(name);
      section_index_.emplace(Lower(name), sections_.size());  // a repeated name keeps the first
      sections_.push_back(std::move(section));
    }
    Section& current = sections_.back();
    current.lines.push_back(std::move(line));
    if (&current != &sections_.front()) IndexKey(current, current.lines.size() - 1);
  }
}

void IniDocument::IndexKey(Section& section, std::size_t line_index) {
  std::string_view name;
  if (KeyName(section.lines[line_index].text, name)) section.keys.emplace(Lower(name), line_index);
}

std::string IniDocument::Get(std::string_view section, std::string_view key) const {
  const auto found_section = section_index_.find(Lower(Trim(section)));
  if (found_section == section_index_.end()) return {};
  const Section& where = sections_[found_section->second];
  const auto found_key = where.keys.find(Lower(Trim(key)));
  if (found_key == where.keys.end()) return {};

  const std::string& text = where.lines[found_key->second].text;
  std::string_view value = Trim(std::string_view(text).substr(text.find('=') + 1));
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
    value = value.substr(1, value.size() - 2);
  return std::string(value.substr(0, kMaxIniValueLength));
}

void IniDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
  const std::string_view section_name = Trim(section);
  const std::string_view key_name = Trim(key);
  const auto found_section = section_index_.find(Lower(section_name));
  Section& where =
      found_section == section_index_.end() ? AppendSection(section_name) : sections_[found_section->second];

  if (const auto found_key = where.keys.find(Lower(key_name)); found_key != where.keys.end()) {
    std::string& text = where.lines[found_key->second].text;
    std::string_view written_name;
    KeyName(text, written_name);
    text = std::string(written_name) + "=" + std::string(value);
    return;
  }

  // The new key goes behind the section's last non-blank line, before any blank lines that
  // separate it from the next section. Only blank lines move, so the key index stays valid.
  // The section's header line is never blank, so there is always such a line.
  const auto last_text =
      std::find_if(where.lines.rbegin(), where.lines.rend(), [](const Line& line) { return !Trim(line.text).empty(); });
  const auto after = static_cast<std::size_t>(where.lines.rend() - last_text) - 1;
  if (where.lines[after].ending.empty()) where.lines[after].ending = newline_;
  where.lines.insert(where.lines.begin() + static_cast<std::ptrdiff_t>(after) + 1,
                     Line{std::string(key_name) + "=" + std::string(value), newline_});
  where.keys.emplace(Lower(key_name), after + 1);
}

IniDocument::Section& IniDocument::AppendSection(std::string_view name) {
  EndLastLine();
  Section section;
  section.name = std::string(name);
  section.lines.push_back(Line{"[" + section.name + "]", newline_});
  section_index_.emplace(Lower(name), sections_.size());
  sections_.push_back(std::move(section));
  return sections_.back();
}

void IniDocument::EndLastLine() {
  for (auto section = sections_.rbegin(); section != sections_.rend(); ++section) {
    if (section->lines.empty()) continue;
    Line& last = section->lines.back();
    if (last.ending.empty()) last.ending = newline_;
    return;
  }
}

std::string IniDocument::Serialize() const {
  std::string bytes;
  for (const Section& section : sections_)
    for (const Line& line : section.lines) {
      bytes += line.text;
      bytes += line.ending;
    }
  return bytes;
}

}  // namespace velmora::settings
