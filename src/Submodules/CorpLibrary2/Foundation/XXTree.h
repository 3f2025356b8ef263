// Objects in sections: an ordered container of two levels, addressed by index paths.
//
// A path or a section that is out of range stops the process, except that insertions may name the place
// after the last. One thread at a time.
#pragma once

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "Submodules/CorpLibrary2/Foundation/IndexPath.h"
#include "platform/FatalError.h"

namespace dayward {

template <class T>
class XXTree {
public:
    using Objects = std::vector<T>;
    using Paths = std::vector<IndexPath>;

    [[nodiscard]] std::size_t numberOfSections() const { return array_.size(); }
    [[nodiscard]] std::size_t numberOfObjectsInSection(std::size_t section) const { return at(section).size(); }
    [[nodiscard]] const Objects& objectsAtSection(std::size_t section) const { return at(section); }
    [[nodiscard]] const T& objectAtIndexPath(IndexPath path) const { return at(path.section)[row(path)]; }
    /// Of equal objects, the first.
    [[nodiscard]] std::optional<IndexPath> indexPathOfObject(const T& object) const {
        for (std::size_t section = 0; section < array_.size(); ++section) {
            const auto& objects = array_[section];
            const auto found = std::find(objects.begin(), objects.end(), object);
            if (found != objects.end()) return IndexPath{section, static_cast<std::size_t>(found - objects.begin())};
        }
        return std::nullopt;
    }
    [[nodiscard]] bool isEqualToTree(const XXTree& other) const { return array_ == other.array_; }

    void insertObject(T object, IndexPath atIndexPath) {
        insertObject(std::move(object), atIndexPath.row, atIndexPath.section);
    }
    void insertObject(T object, std::size_t atIndex, std::size_t inSection) {
        auto& objects = at(inSection);
        if (atIndex > objects.size()) fatalError("XXTree: an object is inserted past the end of its section");
        objects.insert(objects.begin() + static_cast<std::ptrdiff_t>(atIndex), std::move(object));
    }
    /// One after the other: a path counts what the earlier ones have inserted.
    void insertObjects(const Objects& objects, const Paths& atIndexPaths) {
        requireSameCount(objects, atIndexPaths);
        for (std::size_t index = 0; index < objects.size(); ++index) insertObject(objects[index], atIndexPaths[index]);
    }

    void replaceObjectAtIndexPath(IndexPath path, T withObject) { at(path.section)[row(path)] = std::move(withObject); }
    void replaceObjectAtIndex(std::size_t index, std::size_t inSection, T withObject) {
        replaceObjectAtIndexPath({inSection, index}, std::move(withObject));
    }
    void replaceObjectsAtIndexPaths(const Paths& paths, const Objects& withObjects) {
        requireSameCount(withObjects, paths);
        for (std::size_t index = 0; index < paths.size(); ++index)
            replaceObjectAtIndexPath(paths[index], withObjects[index]);
    }

    void removeObjectAtIndexPath(IndexPath path) {
        const auto index = static_cast<std::ptrdiff_t>(row(path));
        auto& objects = at(path.section);
        objects.erase(objects.begin() + index);
    }
    /// The paths are those before any removal; one that stands twice counts once.
    void removeObjectsAtIndexPaths(Paths paths) {
        std::sort(paths.begin(), paths.end());
        paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
        for (auto path = paths.rbegin(); path != paths.rend(); ++path) removeObjectAtIndexPath(*path);
    }
    void removeObjectsAtIndex(std::size_t index, std::size_t inSection) { removeObjectAtIndexPath({inSection, index}); }
    void removeObjectsAtIndexes(const std::vector<std::size_t>& indexes, std::size_t inSection) {
        Paths paths;
        for (const auto index : indexes) paths.push_back({inSection, index});
        removeObjectsAtIndexPaths(std::move(paths));
    }

    /// A new section that holds the objects.
    void insertObjects(Objects objects, std::size_t atSection) {
        if (atSection > array_.size()) fatalError("XXTree: a section is inserted past the end");
        array_.insert(array_.begin() + static_cast<std::ptrdiff_t>(atSection), std::move(objects));
    }
    void replaceSection(std::size_t section, Objects withObjects) { at(section) = std::move(withObjects); }
    void removeSection(std::size_t section) {
        at(section);
        array_.erase(array_.begin() + static_cast<std::ptrdiff_t>(section));
    }

private:
    const Objects& at(std::size_t section) const {
        if (section >= array_.size()) fatalError("XXTree: no such section");
        return array_[section];
    }
    Objects& at(std::size_t section) { return const_cast<Objects&>(std::as_const(*this).at(section)); }
    std::size_t row(IndexPath path) const {
        if (path.row >= at(path.section).size()) fatalError("XXTree: no such object");
        return path.row;
    }
    static void requireSameCount(const Objects& objects, const Paths& paths) {
        if (objects.size() != paths.size()) fatalError("XXTree: as many objects as paths are needed");
    }

    std::vector<Objects> array_;
};

}  // namespace dayward
