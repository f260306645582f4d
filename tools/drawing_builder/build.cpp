#include "drawing_builder/build.h"

#include <system_error>

#include "core/file_writer.h"
#include "core/number_text.h"
#include "drawing_builder/board_files.h"
#include "drawing_builder/core_drawing.h"
#include "drawing_builder/diagram_checks.h"
#include "drawing_builder/painter.h"

namespace vantrel::drawing {

namespace {

constexpr std::string_view kPictures = "graphics/";
constexpr std::string_view kDrawings = "graphics/Schematic/";

/// All text files of a folder, in the order of their names.
std::vector<std::filesystem::path> files_in(const std::filesystem::path& folder,
                                            Problems& problems) {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == ".txt") files.push_back(entry->path());
  }
  if (error) problems.add(folder, 0, "could not be read: " + error.message());
  std::ranges::sort(files);
  return files;
}

std::vector<SourceLine> read_folder(const std::filesystem::path& folder, Problems& problems) {
  std::vector<SourceLine> lines;
  for (const std::filesystem::path& file : files_in(folder, problems)) {
    const std::vector<SourceLine> more = read_lines(file, problems);
    lines.insert(lines.end(), more.begin(), more.end());
  }
  return lines;
}

/// Files to write, so that nothing is written before all checks are done.
class Output {
 public:
  explicit Output(std::filesystem::path folder) : folder_(std::move(folder)) {}

  void add(const std::string& name, std::vector<std::uint8_t> bytes) {
    files_.push_back({name, std::move(bytes)});
  }
  void add(const std::string& name, std::string_view text) {
    add(name, std::vector<std::uint8_t>(text.begin(), text.end()));
  }
  void write(Problems& problems) const {
    for (const auto& [name, bytes] : files_) {
      const std::filesystem::path path = folder_ / name;
      std::error_code error;
      std::filesystem::create_directories(path.parent_path(), error);
      const std::optional<std::string> fault =
          error ? std::optional(error.message()) : write_file(path, bytes);
      if (fault) problems.add(path, 0, "could not be written: " + *fault);
    }
  }

 private:
  std::filesystem::path folder_;
  std::vector<std::pair<std::string, std::vector<std::uint8_t>>> files_;
};

std::string sheet_title(const Sheet& sheet) {
  const Combination& names = sheet.combination;
  return names.ic + "  " + names.input + "  " + names.config;
}

void add_circuits(const BuildPaths& paths, const builder::SourceTables& tables, Output& output,
                  Problems& problems) {
  const CircuitSources sources = read_circuits(paths.drawings, problems);
  for (const Sheet& sheet : required_sheets(tables, problems)) {
    NetList nets;
    const Diagram diagram = checked_diagram(sources, sheet, nets, problems);
    const Drawing drawing = paint_diagram(diagram, nets, sheet_title(sheet), sheet.long_values);
    output.add(std::string(kDrawings) + "IC/" + sheet.name + ".wmf", drawing.metafile);
    output.add(std::string(kDrawings) + "IC/" + sheet.name + ".layout", drawing.layout);
  }
}

void add_picture(const Picture& picture, const std::string& name, Output& output) {
  const std::string path = std::string(kDrawings) + picture.folder + "/" + name;
  output.add(path + ".wmf", paint_shapes(picture.shapes, picture.width, picture.height));
  if (!picture.overlays.empty()) output.add(path + ".layout", picture.layout());
}

void add_pictures(const BuildPaths& paths, Output& output, Problems& problems) {
  for (const std::filesystem::path& file : files_in(paths.drawings / "pictures", problems)) {
    add_picture(read_picture(read_lines(file, problems), problems), file.stem().string(), output);
  }
}

void add_board(const BuildPaths& paths, Output& output, Problems& problems) {
  const Board board = read_board(read_lines(paths.drawings / "board.txt", problems), problems);
  for (const auto& [name, text] : board_files(board)) output.add("Gerber/" + name, text);
  for (const auto& [name, picture] : layer_pictures(board)) {
    output.add(std::string(kPictures) + name, picture);
  }
}

}  // namespace

CircuitSources read_circuits(const std::filesystem::path& folder, Problems& problems) {
  CircuitSources sources;
  read_symbols(read_folder(folder / "symbols", problems), sources.symbols, problems);
  read_blocks(read_folder(folder / "blocks", problems), sources.blocks, problems);
  sources.plan = read_plan(read_lines(folder / "sheet.txt", problems), problems);
  return sources;
}

Diagram checked_diagram(const CircuitSources& sources, const Sheet& sheet, NetList& nets,
                        Problems& problems) {
  Problems found;
  const Diagram diagram =
      compose(sources.plan, sources.blocks, sources.symbols, sheet.combination, found);
  nets = follow_wires(diagram, found);
  check_room(diagram, found);
  check_bill(diagram, sheet.bill, {"sheet.txt", 0}, found);
  for (const Problem& problem : found.list()) {
    problems.add(problem.file, problem.line,
                 problem.text + " (" + to_string(sheet.combination) + ")");
  }
  return diagram;
}

Problems build_drawings(const BuildPaths& paths) {
  Problems problems;
  Output output(paths.out);
  const builder::SourceTables tables = read_tables(paths.schema, paths.data, problems);
  add_circuits(paths, tables, output, problems);
  add_pictures(paths, output, problems);
  for (const CoreData& core : read_cores(tables)) {
    add_picture(draw_core(core), core_file_name(core.name), output);
  }
  add_board(paths, output, problems);
  if (problems.empty()) output.write(problems);
  return problems;
}

}  // namespace vantrel::drawing
