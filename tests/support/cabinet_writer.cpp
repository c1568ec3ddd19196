#include "support/cabinet_writer.h"

#include <algorithm>

namespace panelkit::test {

namespace {

constexpr std::size_t kBlockSize = 32768;

std::string Number(std::uint64_t value, int bytes) {
  std::string out;
  for (; bytes > 0; --bytes, value >>= 8) out += static_cast<char>(value & 0xFF);
  return out;
}

// Adds a folder's blocks to `data` and returns their number. The first `before` and the last
// `after` bytes of the content lie in the neighbours: a block that goes on in the next cabinet has
// unpacked size 0, its last piece the size of the whole block.
std::size_t AddBlocks(std::string& data, const std::string& content, std::size_t before,
                      std::size_t after, const CabinetOptions& options) {
  const std::size_t end = content.size() - after;
  std::size_t blocks = 0;
  for (std::size_t at = before; at < end; ++blocks) {
    const std::size_t block_start = at / kBlockSize * kBlockSize;
    const std::size_t block_end = std::min(block_start + kBlockSize, content.size());
    const std::size_t size = std::min(block_end, end) - at;
    const std::size_t unpacked = end < block_end ? 0 : block_end - block_start;
    data += Number(0, 4) + Number(size, 2) + Number(unpacked, 2) +
            std::string(options.reserve, 'D') + content.substr(at, size);
    at += size;
  }
  return blocks;
}

std::string OptionalFields(const CabinetOptions& options) {
  std::string out;
  if (options.reserve != 0) {
    out += Number(options.reserve, 2) + Number(options.reserve, 1) + Number(options.reserve, 1) +
           std::string(options.reserve, 'H');
  }
  for (const std::string& neighbour : {options.previous, options.next}) {
    if (!neighbour.empty()) out += neighbour + '\0' + "Disk" + '\0';
  }
  return out;
}

}  // namespace

std::string MakeCabinet(const std::vector<CabinetEntry>& entries, const CabinetOptions& options) {
  std::vector<std::string> folders(options.folders);
  std::string files;
  for (const CabinetEntry& entry : entries) {
    const bool is_own = entry.folder < kFromPrevious;
    const std::size_t at_an_end = entry.folder == kToNext ? folders.size() - 1 : 0;
    std::string& content = folders.at(is_own ? entry.folder : at_an_end);
    files += Number(entry.content.size(), 4) + Number(content.size(), 4) + Number(entry.folder, 2) +
             Number(entry.date, 2) + Number(entry.time, 2) + Number(entry.attributes, 2) +
             entry.name + '\0';
    content += entry.content;
  }
  const std::string optional_fields = OptionalFields(options);
  const std::size_t files_offset =
      36 + optional_fields.size() + folders.size() * (8 + options.reserve);
  const std::size_t data_offset = files_offset + files.size();
  std::string folder_table;
  std::string data;
  for (const std::string& folder : folders) {
    const std::size_t start = data_offset + data.size();
    const std::size_t blocks =
        AddBlocks(data, folder, &folder == &folders.front() ? options.bytes_in_previous : 0,
                  &folder == &folders.back() ? options.bytes_in_next : 0, options);
    folder_table +=
        Number(start, 4) + Number(blocks, 2) + Number(0, 2) + std::string(options.reserve, 'F');
  }
  const int flags = (options.previous.empty() ? 0 : 1) | (options.next.empty() ? 0 : 2) |
                    (options.reserve == 0 ? 0 : 4);
  return "MSCF" + Number(0, 4) + Number(data_offset + data.size(), 4) + Number(0, 4) +
         Number(files_offset, 4) + Number(0, 4) + Number(3, 1) + Number(1, 1) +
         Number(folders.size(), 2) + Number(entries.size(), 2) + Number(flags, 2) +
         Number(0x1234, 2) + Number(options.set_index, 2) + optional_fields + folder_table + files +
         data;
}

}  // namespace panelkit::test
