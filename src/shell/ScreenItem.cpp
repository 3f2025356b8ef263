#include "shell/ScreenItem.h"

#include "Classes/Interface/Screens/Navigation.h"
#include "Classes/Interface/Screens/TableScreen.h"
#include "Classes/Interface/Select/OwnPicture.h"
#include "shell/ChosenFile.h"
#include "shell/DetailItem.h"
#include "shell/ListItem.h"
#include "shell/QtValues.h"
#include "shell/StackItem.h"

namespace dayward {

namespace {

struct RoleName {
    BarButton::Role role;
    const char* name;
};
constexpr RoleName kRoles[] = {
    {BarButton::Role::cancel, "cancel"}, {BarButton::Role::done, "done"},   {BarButton::Role::edit, "edit"},
    {BarButton::Role::add, "add"},       {BarButton::Role::sort, "sort"},   {BarButton::Role::info, "info"},
    {BarButton::Role::share, "share"},   {BarButton::Role::remove, "remove"}, {BarButton::Role::today, "today"},
};

QString nameOf(BarButton::Role role) {
    for (const RoleName& known : kRoles) {
        if (known.role == role) return QString::fromLatin1(known.name);
    }
    return {};
}

}  // namespace

ScreenItem::ScreenItem(Screen screen, Pictures& pictures, QObject* parent)
    : QObject(parent), screen_(std::move(screen)) {
    screen_->setObserver(this);
    if (auto* table = dynamic_cast<TableScreen*>(screen_.get())) rows_ = std::make_unique<TableModel>(*table, pictures);
}

ScreenItem* ScreenItem::make(const Screen& screen, Pictures& pictures, QObject* parent) {
    if (auto list = std::dynamic_pointer_cast<EventListViewController>(screen)) {
        return new ListItem(std::move(list), pictures, parent);
    }
    if (auto detail = std::dynamic_pointer_cast<EventDetailViewController>(screen)) {
        return new DetailItem(std::move(detail), pictures, parent);
    }
    return new ScreenItem(screen, pictures, parent);
}

ScreenItem::~ScreenItem() { screen_->removeObserver(this); }

QString ScreenItem::title() const { return qtText(screen_->title()); }

QVariantList ScreenItem::buttons() const {
    QVariantList list;
    for (const BarButton& button : screen_->barButtons()) {
        list.append(QVariantMap{
            {"role", nameOf(button.role)}, {"label", qtText(button.label)}, {"enabled", button.enabled}});
    }
    return list;
}

QString ScreenItem::page() const { return rows_ ? QStringLiteral("table") : QString(); }

bool ScreenItem::takesPictures() const { return dynamic_cast<PictureTarget*>(screen_.get()) != nullptr; }

bool ScreenItem::press(const QString& role) {
    for (const RoleName& known : kRoles) {
        if (role == QLatin1String(known.name)) return screen_->press(known.role);
    }
    return false;
}

void ScreenItem::goBack() {
    if (auto* stack = qobject_cast<StackItem*>(parent())) stack->goBack();
}

void ScreenItem::dropPicture(const QUrl& file) {
    auto* target = dynamic_cast<PictureTarget*>(screen_.get());
    if (target != nullptr && screen_->isPresented()) target->takePicture(readChosenFile(file));
}

void ScreenItem::release() {
    --pages_;
    if (isRetired_ && pages_ <= 0) deleteLater();
}

void ScreenItem::retire() {
    isRetired_ = true;
    setParent(nullptr);
    if (pages_ <= 0) deleteLater();
}

}  // namespace dayward
