#include "pages/strip_text.h"

namespace panelkit {
namespace {

std::string Verb(std::size_t count, const char* one, const char* many) {
  return count == 1 ? one : many;
}

std::string OfThe(std::size_t some, std::size_t all) {
  return (some == 0 ? "None" : std::to_string(some)) + " of the " + std::to_string(all);
}

}  // namespace

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string MissingText(std::size_t missing) {
  if (missing == 0) return "No required file is missing.";
  return Counted(missing, "required file") + Verb(missing, " is", " are") + " missing.";
}

std::string MovedText(std::size_t moved, std::size_t named) {
  if (named == 0) {
    return Counted(moved, "file") + Verb(moved, " was", " were") + " moved to SpareGauges.";
  }
  if (moved == 1) return "The moved file is named by a panel in another way.";
  return OfThe(named, moved) + " moved files" + Verb(named, " is", " are") +
         " named by panels in another way.";
}

std::string PutBackText(std::size_t restored, std::size_t wanted) {
  if (restored == wanted) {
    return Counted(restored, "file") + Verb(restored, " was", " were") + " put back into Gauges.";
  }
  if (wanted == 1) return "The file could not be put back into Gauges.";
  return OfThe(restored, wanted) + " files" + (restored < 2 ? " was" : " were") +
         " put back into Gauges.";
}

std::string StillInSpareText(std::size_t files) {
  return Counted(files, "file") + Verb(files, " is", " are") + " still in SpareGauges.";
}

std::string SimulatorText(const std::string& folder, std::size_t registered) {
  const std::string told = "This is the simulator in " + folder;
  return registered > 1 ? told + ", one of " + std::to_string(registered) + "." : told + ".";
}

std::string SimulatorGoneText(const std::string& folder) {
  return "The simulator that you chose is no longer in " + folder + ".";
}

std::string NoSimulatorThereText(const std::string& folder) {
  return folder + " is no simulator: it lacks Aircraft or Gauges.";
}

std::string LookingText(std::size_t required) {
  return "Looking for " + Counted(required, "required file") + ".";
}

std::string SearchedText(std::size_t files, std::size_t archives) {
  return Counted(files, "file") + ", " + Counted(archives, "archive");
}

std::string FoundText(std::size_t helped, std::size_t found, std::size_t required) {
  if (required == 0) return MissingText(0);
  if (required == 1) {
    if (found == 0) return "The required file was not found there.";
    return std::string("The required file ") + (helped == 0 ? "cannot" : "can") +
           " be copied to Gauges.";
  }
  return OfThe(helped, required) + (found == 0 ? " was found there." : " can be copied to Gauges.");
}

std::string InstalledText(std::size_t copied, std::size_t missing) {
  const std::string told =
      copied == 0 ? "No file was" : Counted(copied, "file") + Verb(copied, " was", " were");
  if (missing == 0) return told + " copied to Gauges; none is missing now.";
  return told + " copied to Gauges; " + std::to_string(missing) + Verb(missing, " is", " are") +
         " still missing.";
}

std::string TakenOutText(std::size_t removed, std::size_t kept) {
  std::string told = Counted(removed, "file") + Verb(removed, " was", " were") + " taken out again";
  if (kept > 0) told += ", " + std::to_string(kept) + Verb(kept, " was", " were") + " left";
  return told + ".";
}

}  // namespace panelkit
