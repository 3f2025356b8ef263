// Reads and writes event packages: the only code that knows what lies inside one. Stateless; any
// thread. Paths are those of packages. While a package's archive is read, a fatal error is blamed on
// the package.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Classes/Event/EventDocument.h"
#include "Classes/Event/HHEvent.h"
#include "platform/Image.h"
#include "platform/Result.h"

namespace dayward {

class EventStoreHelper {
public:
    /// The error domain for a package without a readable "general.t".
    static constexpr const char* kNoDataDomain = "Нет данных info";

    /// The last path component without its extension.
    static std::string itemKeyForFileURL(std::string_view path);

    /// The event of a package; reads "general.t" alone. A path that is no readable directory is an
    /// error of the domain EventDocument::kNoFilesDomain ("fileName"); a package without a readable
    /// "general.t", and a path where nothing is, one of kNoDataDomain ("file").
    static Result<std::shared_ptr<HHEvent>> readEvent(const std::string& path);
    /// The event in the bytes of the package's "general.t"; nothing is looked at on the disk.
    static Result<std::shared_ptr<HHEvent>> eventFromGeneralData(const Data& general, const std::string& path);
    /// What the package is to hold for the event, from what it holds.
    static Result<std::vector<PackageFile>> packageOfEvent(const HHEvent& event, const std::string& path);
    /// The package is another now: its images are read again.
    static void forgetImages(const std::string& path);
    /// Replaces the package whole. Images that the event has not changed and files of others
    /// stay byte for byte. On an error what was there stays.
    static Result<> writeEvent(const HHEvent& event, const std::string& path);

    /// The whole package, images included; empty where nothing is at the path.
    static Result<EventDocument> readEventDocument(const std::string& path);
    static Result<> writeEventDocument(const EventDocument& document, const std::string& path);
    /// The event of a document in memory, its identifier taken from the document's path.
    static Result<std::shared_ptr<HHEvent>> getEventFromDocument(const EventDocument& document);

    /// The image of "icon.i"; an error where it is missing or no image.
    static Result<std::shared_ptr<const Image>> readIconImage(const std::string& path);
    /// The same of "background.i".
    static Result<std::shared_ptr<const Image>> readBackgroundImage(const std::string& path);
};

}  // namespace dayward
