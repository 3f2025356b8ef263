#include "resources/generator/Catalogue.h"

#include <atomic>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <mutex>
#include <stdexcept>
#include <thread>

namespace dayward::generator {

Catalogue Catalogue::read(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    Catalogue catalogue{Json::parse(file), {}};
    for (const Json& group : catalogue.table.at("groups")) {
        for (const Json& item : group.at("items")) catalogue.items.push_back(item);
    }
    return catalogue;
}

void Catalogue::forEach(const std::function<void(const Json&)>& make) const {
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::string failed;
    const auto work = [&] {
        for (std::size_t index = next++; index < items.size(); index = next++) {
            try {
                make(items[index]);
            } catch (const std::exception& error) {
                const std::lock_guard lock(mutex);
                if (failed.empty()) failed = items[index].value("file", "an item") + ": " + error.what();
                next = items.size();
            }
        }
    };
    {
        std::vector<std::jthread> workers;
        for (unsigned index = 1; index < std::thread::hardware_concurrency(); ++index) workers.emplace_back(work);
        work();
    }
    if (!failed.empty()) throw std::runtime_error(failed);
}

void Catalogue::writeIndex(const std::string& directory, const std::string& stem) const {
    Json names = Json::array();
    for (const Json& item : items) names.push_back(item.at("file"));
    Json groups = Json::array();
    for (const Json& group : table.at("groups")) {
        Json entry = {{"name", group.at("name")}, {"items", Json::array()}};
        for (const Json& item : group.at("items")) {
            entry["items"].push_back({{"file", item.at("file")}, {"name", item.at("name")}});
        }
        groups.push_back(std::move(entry));
    }
    const std::string groupText = groups.dump(1) + "\n";
    writeFile(directory + "/" + stem + "Groups.json", groupText.data(), groupText.size());
    const std::string nameText = names.dump(1) + "\n";
    writeFile(directory + "/" + stem + "Data.json", nameText.data(), nameText.size());
}

void writeFile(const std::string& path, const void* bytes, std::size_t count) {
    std::ofstream file(path, std::ios::binary);
    file.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
    file.close();
    if (!file) throw std::runtime_error(path + ": cannot be written");
}

int runGenerator(int count, char** arguments, const std::string& usage, std::size_t wanted,
                 const std::function<void(const std::vector<std::string>&)>& run) {
    const std::vector<std::string> given(arguments + 1, arguments + count);
    if (given.size() != wanted) {
        std::cerr << "usage: " << usage << '\n';
        return 2;
    }
    try {
        std::filesystem::create_directories(given.back());
        run(given);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << std::filesystem::path(arguments[0]).filename().string() << ": " << error.what() << '\n';
        return 1;
    }
}

}  // namespace dayward::generator
