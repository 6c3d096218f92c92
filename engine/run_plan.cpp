// The plan and journal files: lines of tab-separated fields, with backslash, tab, line feed and
// carriage return escaped inside a field, so that any path survives.
#include "engine/run_plan.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "engine/file_replace.h"
#include "engine/paths.h"

namespace velmora::engine {
namespace {

constexpr const char* kJournalFormat = "velmora-journal";

std::string Escaped(const std::string& field) {
  if (field.find_first_of("\\\t\n\r") == std::string::npos) return field;
  std::string out;
  out.reserve(field.size());
  for (const char c : field) {
    switch (c) {
      case '\\': out += "\\\\"; break;
      case '\t': out += "\\t"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      default: out += c;
    }
  }
  return out;
}

std::vector<std::string> Fields(std::string_view line) {
  std::vector<std::string> fields(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '\t') {
      fields.emplace_back();
    } else if (c == '\\' && i + 1 < line.size()) {
      const char next = line[++i];
      fields.back() += next == 't' ? '\t' : next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

void AddLine(std::string& text, const std::vector<std::string>& fields) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) text += '\t';
    text += Escaped(fields[i]);
  }
  text += '\n';
}

std::string Hex(const std::string& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string out;
  for (const unsigned char c : bytes) out += {kDigits[c >> 4], kDigits[c & 15]};
  return out;
}

bool FromHex(const std::string& hex, std::string& bytes) {
  if (hex.size() % 2 != 0) return false;
  bytes.clear();
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    unsigned value = 0;
    std::istringstream digits(hex.substr(i, 2));
    if (!(digits >> std::hex >> value)) return false;
    bytes += static_cast<char>(value);
  }
  return true;
}

std::string ReadFile(const std::string& path, bool& read) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  read = static_cast<bool>(in);
  return bytes.str();
}

// Splits whole lines (each ended by a line feed) off `text`; `whole` is the length they take.
std::vector<std::string_view> WholeLines(std::string_view text, std::size_t& whole) {
  std::vector<std::string_view> lines;
  whole = 0;
  for (std::size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n', whole)) {
    lines.push_back(text.substr(whole, end - whole));
    whole = end + 1;
  }
  return lines;
}

std::optional<std::size_t> Number(const std::string& text) {
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  return static_cast<std::size_t>(std::stoull(text));
}

}  // namespace

bool WriteRunPlan(const RunPlan& plan, const std::string& path) {
  std::string text;
  AddLine(text, {kPlanFormat, std::to_string(kPlanVersion)});
  AddLine(text, {"id", plan.id});
  AddLine(text, {"job", Hex(EncodeWorkerJob(plan.job))});
  AddLine(text, {"index", plan.html_index ? "1" : "0"});
  AddLine(text, {"skipped", std::to_string(plan.skipped)});
  AddLine(text, {"single-shard", plan.single_shard_reason});
  AddLine(text, {"rows", std::to_string(plan.rows.size())});
  for (const PlannedRow& row : plan.rows) {
    std::vector<std::string> fields{row.source, row.target, std::to_string(row.outputs.size())};
    fields.insert(fields.end(), row.outputs.begin(), row.outputs.end());
    fields.insert(fields.end(), row.superseded.begin(), row.superseded.end());
    AddLine(text, fields);
  }
  AddLine(text, {"end"});
  return WriteFileAtomically(path, text);
}

std::string ReadRunPlan(const std::string& path, RunPlan& plan) {
  bool read = false;
  const std::string text = ReadFile(path, read);
  if (!read) return "cannot read the plan " + path;
  std::size_t whole = 0;
  const std::vector<std::string_view> lines = WholeLines(text, whole);
  const std::vector<std::string> first = Fields(lines.empty() ? std::string_view() : lines[0]);
  if (first.size() != 2 || first[0] != kPlanFormat) return path + " is not a velmora-batch plan";
  if (first[1] != std::to_string(kPlanVersion))
    return path + " is a plan of version " + first[1] + ", which this velmora-batch does not know (it reads version " +
           std::to_string(kPlanVersion) + "); write the plan again with this velmora-batch";
  const std::string damaged = "the plan " + path + " is damaged";
  constexpr std::size_t kHeaderLines = 7;
  if (lines.size() < kHeaderLines + 1) return damaged;
  std::vector<std::string> header[kHeaderLines];
  for (std::size_t i = 1; i < kHeaderLines; ++i) header[i] = Fields(lines[i]);
  const auto value = [&](std::size_t line, const char* name) {
    return header[line].size() == 2 && header[line][0] == name ? header[line][1] : std::string("?");
  };
  std::string job;
  const std::optional<std::size_t> skipped = Number(value(4, "skipped")), rows = Number(value(6, "rows"));
  plan.id = value(1, "id");
  plan.html_index = value(3, "index") == "1";
  plan.single_shard_reason = value(5, "single-shard");
  if (!FromHex(value(2, "job"), job) || !DecodeWorkerJob(job, plan.job) || !skipped || !rows ||
      lines.size() != kHeaderLines + *rows + 1 || lines.back() != "end")
    return damaged;
  plan.skipped = static_cast<std::int32_t>(*skipped);
  plan.rows.assign(*rows, {});
  for (std::size_t r = 0; r < *rows; ++r) {
    std::vector<std::string> fields = Fields(lines[kHeaderLines + r]);
    const std::optional<std::size_t> outputs = fields.size() >= 3 ? Number(fields[2]) : std::nullopt;
    if (!outputs || fields.size() < 3 + *outputs) return damaged;
    PlannedRow& row = plan.rows[r];
    row.source = std::move(fields[0]);
    row.target = std::move(fields[1]);
    const auto superseded = fields.begin() + 3 + static_cast<std::ptrdiff_t>(*outputs);
    row.outputs.assign(fields.begin() + 3, superseded);
    row.superseded.assign(superseded, fields.end());
  }
  return {};
}

std::string JournalPath(const std::string& plan_path, int shard, int shards) {
  return plan_path + "." + std::to_string(shard) + "-of-" + std::to_string(shards) + ".journal";
}

std::vector<std::string> JournalPaths(const std::string& plan_path) {
  namespace fs = std::filesystem;
  const fs::path plan(plan_path);
  const std::string prefix = plan.filename().string() + ".";
  std::vector<std::string> paths;
  std::error_code error;
  const fs::path folder = plan.has_parent_path() ? plan.parent_path() : fs::path(".");
  for (const auto& entry : fs::directory_iterator(folder, error)) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(prefix) && name.ends_with(".journal")) paths.push_back(entry.path().string());
  }
  return paths;
}

std::string JournalHeader(const std::string& plan_id) {
  std::string text;
  AddLine(text, {kJournalFormat, plan_id});
  return text;
}

std::string JournalLine(std::size_t row, const JournalEntry& entry) {
  std::vector<std::string> fields{std::to_string(row), std::to_string(entry.cells.size())};
  fields.insert(fields.end(), entry.cells.begin(), entry.cells.end());
  fields.insert(fields.end(), entry.written.begin(), entry.written.end());
  std::string text;
  AddLine(text, fields);
  return text;
}

std::size_t ReadJournal(const std::string& path, const std::string& plan_id, Journal& journal) {
  bool read = false;
  const std::string text = ReadFile(path, read);
  std::size_t whole = 0;
  const std::vector<std::string_view> lines = WholeLines(text, whole);
  if (!read || lines.empty() || Fields(lines[0]) != std::vector<std::string>{kJournalFormat, plan_id}) return 0;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::vector<std::string> fields = Fields(lines[i]);
    const std::optional<std::size_t> row = fields.size() >= 2 ? Number(fields[0]) : std::nullopt;
    const std::optional<std::size_t> cells = fields.size() >= 2 ? Number(fields[1]) : std::nullopt;
    if (!row || !cells || fields.size() < 2 + *cells) continue;
    JournalEntry& entry = journal[*row];
    entry.cells.assign(fields.begin() + 2, fields.begin() + 2 + static_cast<std::ptrdiff_t>(*cells));
    entry.written.assign(fields.begin() + 2 + static_cast<std::ptrdiff_t>(*cells), fields.end());
  }
  return whole;
}

}  // namespace velmora::engine
