// A small set of the program's resources: two icons, two backgrounds, two sounds, in groups.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "Classes/App/ArchiveRegistration.h"
#include "support/TestEnvironment.h"
#include "support/TestPaths.h"

namespace dayward {

class GalleryResources {
public:
    GalleryResources() {
        namespace fs = std::filesystem;
        directory = (fs::temp_directory_path() / ("gallery-resources-" + std::to_string(::getpid()))).string();
        fs::remove_all(directory);
        fs::copy(testData() + "/resources", directory, fs::copy_options::recursive);
        write("iconGroups", R"([{"name": "Love", "items": [{"file": "heart4.png", "name": "Heart"},
                                                           {"file": "remind.png", "name": "Bell"}]}])");
        write("backgroundGroups", R"([{"name": "Sky", "items": [{"file": "bg-37.jpg", "name": "Dusk"},
                                                                {"file": "bg-38.jpg", "name": "Dawn"}]}])");
        write("soundGroups", R"([{"name": "Bells", "items": [{"file": "Soft_Bell.wav", "name": "Soft Bell"}]}])");
        write("fontData", R"([{"name": "Futura-Medium", "title": "Futura Medium", "family": "Jost"}, {"name": "Georgia", "family": "Gelasio"}])");
    }
    ~GalleryResources() { std::filesystem::remove_all(directory); }

    [[nodiscard]] TestEnvironment::Options options(std::string locale = "en_US") const {
        TestEnvironment::Options options;
        options.locale = std::move(locale);
        options.archiveClasses = allArchiveClasses();
        options.resources = directory;
        return options;
    }

    std::string directory;

private:
    void write(const std::string& name, const char* content) const {
        std::ofstream(directory + "/" + name + ".json") << content;
    }
};

}  // namespace dayward
