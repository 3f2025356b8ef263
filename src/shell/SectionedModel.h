// Sections and rows as one flat list for QML: of each section its header, its rows, its footer. Each
// update of the sections becomes one change of the model, so that the view can animate it. Main thread
// only.
#pragma once

#include <QAbstractListModel>
#include <functional>
#include <optional>
#include <vector>

#include "Classes/Interface/Screens/TableUpdates.h"

namespace dayward {

class SectionedModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    /// Where an item of the list stands; a row of -1 is the header, one beyond the last the footer.
    struct Place {
        std::size_t section = 0;
        int row = 0;
    };

    /// The sections as they are now; a model that was told all updates agrees with them.
    [[nodiscard]] virtual std::vector<int> countRows() const = 0;
    /// Items of a section beside its rows.
    [[nodiscard]] virtual bool hasHeaders() const { return true; }
    [[nodiscard]] virtual bool hasFooters() const { return true; }
    /// Of the roles that tell a row's place in its section.
    [[nodiscard]] virtual QList<int> edgeRoles() const { return {}; }

    /// Takes the sections as they are, without telling anybody: for a constructor.
    void takeCounts() { rowCounts_ = countRows(); }
    [[nodiscard]] int rowsIn(std::size_t section) const { return rowCounts_[section]; }
    [[nodiscard]] Place placeAt(int index) const;
    /// Nothing for a header, a footer and an index without an item.
    [[nodiscard]] std::optional<IndexPath> pathAt(int index) const;
    [[nodiscard]] int indexOf(IndexPath path) const;
    /// Around a change by which `count` items come to stand at `to`, counted without them.
    void moveItems(int from, int count, int to, const std::function<void()>& change);
    void rowDidChange(IndexPath path, const QList<int>& roles);

    // What the updates do to the model.
    void resetAll();
    void rowInserted(IndexPath path);
    void rowDeleted(IndexPath path);
    void rowMoved(IndexPath from, IndexPath to);
    void sectionInserted(std::size_t index);
    void sectionReloaded(std::size_t index);
    void sectionDeleted(std::size_t index);
    void sectionMoved(std::size_t from, std::size_t to);
    void edgesDidChange(std::size_t section);

private:
    [[nodiscard]] int itemsBesideRows() const { return (hasHeaders() ? 1 : 0) + (hasFooters() ? 1 : 0); }
    [[nodiscard]] int startOfSection(std::size_t section) const;

    std::vector<int> rowCounts_;  ///< of the sections as the model has told them
};

/// Hands the updates of a list on to the model.
template <class Updates>
class SectionedModelOf : public SectionedModel, public Updates {
public:
    using SectionedModel::SectionedModel;

    void reloadData() override { resetAll(); }
    void insertRow(IndexPath path) override { rowInserted(path); }
    void reloadRow(IndexPath path) override { rowDidChange(path, {}); }
    void deleteRow(IndexPath path) override { rowDeleted(path); }
    void moveRow(IndexPath from, IndexPath to) override { rowMoved(from, to); }
    void insertSection(std::size_t index) override { sectionInserted(index); }
    void reloadSection(std::size_t index) override { sectionReloaded(index); }
    void deleteSection(std::size_t index) override { sectionDeleted(index); }
    void moveSection(std::size_t from, std::size_t to) override { sectionMoved(from, to); }
};

}  // namespace dayward
