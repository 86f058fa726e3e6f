#include "hosts/media/mpris/MprisPlayers.h"

#include "hosts/media/mpris/BusCalls.h"
#include "hosts/media/mpris/MprisNames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace playback {

namespace {

constexpr const char* busName = "org.freedesktop.DBus";
constexpr const char* busPath = "/org/freedesktop/DBus";
constexpr std::array<std::string_view, 1> proxies = {"playerctld"};
constexpr std::size_t mostPlayers = 64;

/// Whether a bus name is a player's, and no proxy's.
bool isPlayerName(std::string_view name) {
    const std::string prefix = std::string(mpris::namePrefix) + '.';
    if (!name.starts_with(prefix) || name.size() == prefix.size())
        return false;
    const std::string_view own = name.substr(prefix.size());
    const std::string_view kind = own.substr(0, own.find('.')); // "mpv.instance12" is one of mpv's
    return std::find(proxies.begin(), proxies.end(), kind) == proxies.end();
}

} // namespace

MprisPlayers::MprisPlayers(bus::Bus& bus, NowPlayingChoice& choice, MprisPlayer::SongLookup lookUp)
    : bus_(bus), choice_(choice), lookUp_(std::move(lookUp)) {
    busObserver_ = bus_.addObserver([this] { busChanged(); });
    busChanged();
}

MprisPlayers::~MprisPlayers() {
    removeAll();
}

void MprisPlayers::lookUpSongsAgain() {
    for (const auto& [name, player] : players_)
        player->lookUpSongAgain();
}

void MprisPlayers::removeAll() {
    if (cancellable_)
        g_cancellable_cancel(cancellable_.get());
    owners_.reset();
    for (const auto& [name, player] : players_)
        choice_.remove(*player);
    players_.clear();
}

void MprisPlayers::busChanged() {
    removeAll();
    if (!bus_.connection())
        return;
    cancellable_ = std::shared_ptr<GCancellable>(g_cancellable_new(), g_object_unref);
    owners_ = subscribe(bus_.connection(),
                        {busName, busPath, busName, "NameOwnerChanged", mpris::namePrefix,
                         G_DBUS_SIGNAL_FLAGS_MATCH_ARG0_NAMESPACE},
                        [this](GVariant* arguments) { ownerChanged(arguments); });
    listNames();
}

void MprisPlayers::listNames() {
    callMethod(bus_.connection(), busName, busPath, busName, "ListNames", nullptr, cancellable_.get(),
               [this](GVariant* answer) {
                   if (answer && g_variant_is_of_type(answer, G_VARIANT_TYPE("(as)")))
                       takeNames(answer);
               });
}

void MprisPlayers::takeNames(GVariant* answer) {
    const Variant names(g_variant_get_child_value(answer, 0));
    for (gsize index = 0; index < g_variant_n_children(names.get()); ++index) {
        const Variant child(g_variant_get_child_value(names.get(), index));
        const std::string name = g_variant_get_string(child.get(), nullptr);
        if (isPlayerName(name))
            askForOwner(name);
    }
}

void MprisPlayers::askForOwner(const std::string& name) {
    callMethod(bus_.connection(), busName, busPath, busName, "GetNameOwner",
               g_variant_new("(s)", name.c_str()), cancellable_.get(), [this, name](GVariant* answer) {
                   if (!answer || !g_variant_is_of_type(answer, G_VARIANT_TYPE("(s)")))
                       return;
                   const char* owner = nullptr;
                   g_variant_get(answer, "(&s)", &owner);
                   // Its coming may have been told in the meantime.
                   if (!players_.contains(name))
                       setOwner(name, owner);
               });
}

void MprisPlayers::ownerChanged(GVariant* arguments) {
    if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(sss)")))
        return;
    const char *name = nullptr, *owner = nullptr;
    g_variant_get(arguments, "(&s&s&s)", &name, nullptr, &owner);
    if (isPlayerName(name))
        setOwner(name, owner);
}

void MprisPlayers::setOwner(const std::string& name, const std::string& owner) {
    if (const auto found = players_.find(name); found != players_.end()) {
        choice_.remove(*found->second);
        players_.erase(found);
    }
    if (owner.empty() || owner == g_dbus_connection_get_unique_name(bus_.connection()) ||
        players_.size() >= mostPlayers)
        return;
    const auto player = std::make_shared<MprisPlayer>(bus_.connection(), name, owner, lookUp_);
    players_.emplace(name, player);
    choice_.add(player);
}

} // namespace playback
