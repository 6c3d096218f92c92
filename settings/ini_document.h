// An ini file held in memory: sections in square brackets, lines of key, equals sign and value.
// Edits touch only the line of the key they write; every other byte of the file stays as it was.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace velmora::settings {

// Longest value a read gives back; the rest of a longer value is dropped without a word.
inline constexpr std::size_t kMaxIniValueLength = 254;

class IniDocument {
 public:
  IniDocument() = default;
  // Parses `content`; line ends may be "\r\n" or "\n" and are kept as they are.
  explicit IniDocument(std::string_view content);

  // The value of `key` in `section`, names matched without regard to case: blanks on both sides
  // removed, one pair of enclosing quotes (' or ") removed, then cut to kMaxIniValueLength.
  // A missing section or key gives the empty string.
  std::string Get(std::string_view section, std::string_view key) const;

  // Replaces the value of `key` in place, or appends the key to the end of its section, or appends
  // the section with the key to the end of the document. Lines added take the document's line end.
  void Set(std::string_view section, std::string_view key, std::string_view value);

  // The document as bytes: unchanged lines exactly as parsed.
  std::string Serialize() const;

 private:
  struct Line {
    std::string text;    // without its line end
    std::string ending;  // "\r\n", "\n", or "" for a last line without one
  };
  struct Section {
    std::string name;                                   // as written in the header, blanks trimmed
    std::vector<Line> lines;                            // header line first (unless the preamble)
    std::unordered_map<std::string, std::size_t> keys;  // lower-case key name -> first line with it
  };

  void IndexKey(Section& section, std::size_t line_index);
  Section& AppendSection(std::string_view name);
  // Gives the document's last line a line end, so that something can follow it.
  void EndLastLine();

  // The lines before the first header belong to no section and are never matched.
  std::vector<Section> sections_{Section{}};
  std::unordered_map<std::string, std::size_t> section_index_;  // lower-case name -> first section
  std::string newline_ = "\r\n";
};

}  // namespace velmora::settings
