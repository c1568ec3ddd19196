#include "cabinet/cab_error.h"

#include <algorithm>
#include <array>

namespace panelkit {
namespace {

struct CodeText {
  std::int32_t code;
  const char* text;
};

constexpr const char* kUnknown = "Unknown error.";

constexpr std::array kWin32Texts{
    CodeText{2, "The system cannot find the file specified."},
    CodeText{3, "The system cannot find the path specified."},
    CodeText{4, "The system cannot open the file."},
    CodeText{5, "Access is denied."},
    CodeText{8, "Not enough storage is available to process this command."},
    CodeText{13, "Invalid data."},
    CodeText{14, "Not enough storage is available to complete this operation."},
    CodeText{15, "The system cannot find the drive specified."},
    CodeText{19, "The media is write protected."},
    CodeText{20, "The system cannot find the device specified."},
    CodeText{21, "The device is not ready."},
    CodeText{23, "Data error (cyclic redundancy check)."},
    CodeText{25, "The drive cannot locate a specific area or track on the disk."},
    CodeText{26, "The specified disk or diskette cannot be accessed."},
    CodeText{27, "The drive cannot find the sector requested."},
    CodeText{29, "The system cannot write to the specified device."},
    CodeText{30, "The system cannot read from the specified device."},
    CodeText{31, "A device attached to the system is not functioning."},
    CodeText{32, "The process cannot access the file because it is being used by another process."},
    CodeText{33,
             "The process cannot access the file because another process has locked a portion of "
             "the file."},
    CodeText{39, "The disk is full."},
    CodeText{82, "The directory or file cannot be created."},
    CodeText{111, "The file name is too long."},
    CodeText{112, "There is not enough space on the disk."},
    CodeText{123, "The filename, directory name, or volume label syntax is incorrect."},
};

}  // namespace

std::string Win32ErrorText(std::int32_t Code) {
  const auto found = std::find_if(kWin32Texts.begin(), kWin32Texts.end(),
                                  [Code](const CodeText& row) { return row.code == Code; });
  return found == kWin32Texts.end() ? kUnknown : found->text;
}

std::string CabErrorText(std::int32_t Number) {
  return Number == CabNameMissing
             ? "You must set the CabName property before taking any action on the CabFile object."
             : kUnknown;
}

}  // namespace panelkit
