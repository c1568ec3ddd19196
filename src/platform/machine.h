// All that the program asks of the machine: the services of this folder as one value.
#pragma once

#include "platform/archive.h"
#include "platform/cabinet_walk.h"
#include "platform/date_stamps.h"
#include "platform/files.h"
#include "platform/folder_walk.h"
#include "platform/registry.h"
#include "platform/text.h"

namespace panelkit {

/// The services of one machine, owned elsewhere.
struct Machine {
  const Registry& registry;
  Files& files;
  const Text& text;
  CabinetWalk& cabinets;
  const DateStamps& dates;
  const FolderWalk& folders;
  ArchiveReader& archives;
};

}  // namespace panelkit
