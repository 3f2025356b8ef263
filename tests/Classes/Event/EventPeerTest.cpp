// Archives of random events against libplist, which reads the same fields and writes what we read again.
#include "Classes/Category/ColorEventBackgroundPicture.h"
#include "Classes/Category/NamedEventIconPicture.h"
#include "Classes/Event/EventTestSupport.h"
#include "Classes/Event/HHGeneralEventDocumentData.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"
#include "platform/PlistPeer.h"

namespace dayward {
namespace {

class EventPeerTest : public testing::Test {
protected:
    using Text = std::optional<std::string>;

    Text text() { return random_.oneIn(4) ? Text() : Text(random_.text()); }
    Color color() { return {random_.oneIn(2) ? 1.0 : 0.25, 0, 0.5, 1}; }

    XDIDateInterval interval() {
        static constexpr CalendarUnit kUnits[] = {CalendarUnit::year,  CalendarUnit::month, CalendarUnit::week,
                                                  CalendarUnit::day,   CalendarUnit::hour,  CalendarUnit::minute,
                                                  CalendarUnit::second};
        XDIDateInterval made;
        for (auto count = random_.below(4); count > 0; --count)
            made.setValue(static_cast<double>(random_.integer() >> 12), kUnits[random_.below(7)]);
        return made;
    }

    HHEvent event() {
        HHEvent made("key");
        made.setName(text());
        made.setCategoryKey(random_.text());
        made.setDate(Date::sinceReference(random_.real()));
        std::vector<std::int64_t> times(1 + random_.below(20));
        for (auto& minutes : times) minutes = random_.integer();
        made.setTimes(std::move(times));
        made.setRrule(text());
        if (random_.oneIn(2)) made.setDuration(interval());
        made.setShowAge(random_.oneIn(2));
        made.intervalFormat().units = CalendarUnits::fromMask(random_.below(1 << 20));
        made.alerts().soundName = text();
        if (random_.oneIn(2)) made.alerts().list.emplace(random_.below(18), interval());
        made.appearance().fontName = text();
        if (random_.oneIn(2)) made.appearance().textColor = color();
        made.setNote(text());
        if (random_.oneIn(2)) made.setIcon(std::make_shared<NamedEventIconPicture>(random_.text()));
        if (random_.oneIn(2)) made.setBackground(std::make_shared<ColorEventBackgroundPicture>(color()));
        made.setVersion(CCSyncItemVersion(TimeInterval(random_.real())));
        return made;
    }

    static Data archived(const HHEvent& event) {
        return KeyedArchiver::archivedDataWithRootObject(event.getStoreInfo());
    }

    TestEnvironment environment_{eventOptions()};
    RandomValues random_{20261122};
};

/// The fields of an archive as libplist reads them.
struct PeerEvent {
    explicit PeerEvent(const Data& archive) : list(archive), root(list.archivedRoot()) {}

    PeerList list;
    plist_t root;

    [[nodiscard]] plist_t object(plist_t record, const char* key) const {
        return list.object(plist_dict_get_item(record, key));
    }
    [[nodiscard]] std::optional<std::string> text(plist_t record, const char* key) const {
        const bool isNull = PeerList::uid(plist_dict_get_item(record, key)) == 0;
        return isNull ? std::nullopt : std::optional(PeerList::text(object(record, key)));
    }
    [[nodiscard]] std::vector<std::int64_t> times() const {
        plist_t elements = plist_dict_get_item(object(root, "Times"), "NS.objects");
        std::vector<std::int64_t> read;
        for (std::uint32_t i = 0; i < plist_array_get_size(elements); ++i)
            read.push_back(PeerList::integer(list.object(plist_array_get_item(elements, i))));
        return read;
    }
    static XDIDateInterval interval(plist_t record) {
        XDIDateInterval read;
        const auto field = [&](const char* key, double& value) {
            if (plist_t node = plist_dict_get_item(record, key)) value = static_cast<double>(PeerList::integer(node));
        };
        field("Year", read.year), field("Month", read.month), field("Week", read.week), field("Day", read.day);
        field("Hour", read.hour), field("Minute", read.minute), field("Second", read.second);
        return read;
    }
};

TEST_F(EventPeerTest, ReadsTheSameFieldsAndGivesTheSameBytes) {
    for (int round = 0; round < archiveCases(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        const HHEvent made = event();
        const Data bytes = archived(made);
        const PeerEvent peer(bytes);
        ASSERT_EQ(peer.text(peer.root, "Name"), made.name());
        ASSERT_EQ(peer.text(peer.root, "Category"), made.categoryKey());
        ASSERT_EQ(peer.text(peer.root, "RRule"), made.rrule());
        ASSERT_EQ(peer.text(peer.root, "Note"), made.note());
        ASSERT_EQ(PeerList::real(plist_dict_get_item(peer.object(peer.root, "Date"), "NS.time")),
                  made.date().secondsSinceReference());
        ASSERT_EQ(peer.times(), made.times());
        if (made.duration()) {
            ASSERT_EQ(PeerEvent::interval(peer.object(peer.root, "Duration")), *made.duration());
        }
        ASSERT_EQ(plist_bool_val_is_true(plist_dict_get_item(peer.root, "ShowYear")) != 0, made.showAge());
        const plist_t alerts = peer.object(peer.root, "Alerts");
        ASSERT_EQ(peer.text(alerts, "SoundName"), made.alerts().soundName);
        ASSERT_EQ(peer.text(peer.object(peer.root, "Appearance"), "FontName"), made.appearance().fontName);
        ASSERT_EQ(PeerList::real(plist_dict_get_item(peer.object(peer.root, "p006"), "v")),
                  made.version()->timeInterval().seconds());
        for (const Data& read : {bytes, peer.list.rewritten()}) {
            const auto root = KeyedUnarchiver::unarchiveObjectWithData(read);
            ASSERT_TRUE(root);
            HHEvent back("key");
            back.fillStoreInfo(*root->as<HHGeneralEventDocumentData>());
            ASSERT_EQ(archived(back), bytes);
        }
    }
}

}  // namespace
}  // namespace dayward
