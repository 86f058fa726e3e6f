#include "hosts/media/mpris/MprisService.h"

#include "hosts/media/Text.h"
#include "hosts/media/mpris/BusCalls.h"
#include "hosts/media/mpris/MprisInterfaces.h"
#include "hosts/media/mpris/MprisNames.h"
#include "platform/foundation/RunLoop.h"
#include "platform/media/NowPlayingInfo.h"

#include <algorithm>
#include <cmath>

#include <unistd.h>

namespace playback {

namespace {

constexpr const char* trackPrefix = "/org/lanternhub/vela/track/";
constexpr guint32 withoutQueueing = 4; // of the bus's RequestName
constexpr guint32 isOwner = 1;         // its answer

Variant boolean(bool value) {
    return adopt(g_variant_new_boolean(value));
}
Variant text(const std::string& value) {
    return adopt(g_variant_new_string(cleanText(value).c_str())); // the bus takes nothing but valid texts
}
Variant number(double value) {
    return adopt(g_variant_new_double(value));
}
Variant noTexts() {
    return adopt(g_variant_new_strv(nullptr, 0));
}
gint64 microseconds(double seconds) {
    return static_cast<gint64>(std::llround(seconds * 1e6));
}

const std::map<std::string, media::RemoteCommand> commands = {
    {"Next", media::RemoteCommand::NextTrack}, {"Previous", media::RemoteCommand::PreviousTrack},
    {"Pause", media::RemoteCommand::Pause},    {"PlayPause", media::RemoteCommand::TogglePlayPause},
    {"Play", media::RemoteCommand::Play},
};

std::string trackOf(const foundation::PropertyList& info) {
    const auto& identifier = info[media::kMRMediaRemoteNowPlayingInfoUniqueIdentifier];
    return trackPrefix +
           (identifier.isNil() ? std::string("stream") : std::to_string(identifier.integerValue()));
}

double durationOf(const foundation::PropertyList& info) {
    return info[media::kMRMediaRemoteNowPlayingInfoDuration].doubleValue();
}

} // namespace

/// What the bus calls.
struct MprisService::Methods {
    static MprisService& service(gpointer data) { return *static_cast<MprisService*>(data); }

    // What a caller wants done becomes a turn of the main loop.
    static void later(gpointer data, std::function<void(MprisService&)> work) {
        foundation::RunLoop::main().performOnMain(
            [data, cancellable = service(data).cancellable_, work = std::move(work)] {
                if (!g_cancellable_is_cancelled(cancellable.get()))
                    work(service(data));
            });
    }
    static void call(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* method,
                     GVariant* arguments, GDBusMethodInvocation* invocation, gpointer data) {
        const std::shared_ptr<GVariant> kept(g_variant_ref(arguments), g_variant_unref);
        later(data,
              [method = std::string(method), kept](MprisService& each) { each.call(method, kept.get()); });
        g_dbus_method_invocation_return_value(invocation, nullptr);
    }
    static GVariant* get(GDBusConnection*, const gchar*, const gchar*, const gchar* interface,
                         const gchar* name, GError** error, gpointer data) {
        const bool ofPlayer = std::string_view(interface) == mpris::playerInterface;
        if (ofPlayer && std::string_view(name) == "Position")
            return g_variant_new_int64(microseconds(service(data).player_.elapsed()));
        const Properties all =
            ofPlayer ? service(data).playerProperties() : service(data).applicationProperties();
        if (const auto found = all.find(name); found != all.end())
            return g_variant_ref(found->second.get());
        g_set_error_literal(error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_PROPERTY, "There is no such property");
        return nullptr;
    }
    static gboolean set(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name,
                        GVariant* value, GError**, gpointer data) {
        const double wanted = g_variant_get_double(value);
        if (std::string_view(name) == "Volume" && std::isfinite(wanted))
            later(data, [wanted](MprisService& each) {
                each.volume_.set(std::clamp(wanted, 0.0, 1.0));
                each.tellChanges();
            });
        return TRUE; // music has one rate; setting another one is no error
    }
    static constexpr GDBusInterfaceVTable table{call, get, set, {}};
};

MprisService::MprisService(bus::Bus& bus, NowPlayingSource& player, Description description, Volume volume)
    : bus_(bus), player_(player), description_(std::move(description)), volume_(std::move(volume)) {
    busObserver_ = bus_.addObserver([this] { busChanged(); });
    playerObserver_ = player_.addObserver([this](NowPlayingSource::Change change) { playerChanged(change); });
    busChanged();
}

MprisService::~MprisService() {
    leaveBus();
}

void MprisService::leaveBus() {
    if (!connection_)
        return;
    g_cancellable_cancel(cancellable_.get());
    for (const unsigned object : objects_)
        g_dbus_connection_unregister_object(connection_.get(), object);
    objects_.clear();
    connection_.reset();
}

void MprisService::busChanged() {
    leaveBus();
    if (!bus_.connection())
        return;
    connection_ = {G_DBUS_CONNECTION(g_object_ref(bus_.connection())), g_object_unref};
    cancellable_ = {g_cancellable_new(), g_object_unref};
    registerObjects();
    told_ = playerProperties();
    requestName(mpris::namePrefix + ('.' + description_.name));
}

void MprisService::registerObjects() {
    static GDBusNodeInfo* const node =
        g_dbus_node_info_new_for_xml(mpris::interfaces, nullptr); // never torn down
    for (GDBusInterfaceInfo** interface = node->interfaces; *interface; ++interface)
        objects_.push_back(g_dbus_connection_register_object(connection_.get(), mpris::path, *interface,
                                                             &Methods::table, this, nullptr, nullptr));
}

void MprisService::requestName(const std::string& name) {
    callMethod(connection_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
               "RequestName", g_variant_new("(su)", name.c_str(), withoutQueueing), cancellable_.get(),
               [this, name](GVariant* answer) {
                   guint32 result = 0;
                   if (answer && g_variant_is_of_type(answer, G_VARIANT_TYPE("(u)")))
                       g_variant_get(answer, "(u)", &result);
                   const std::string instance = ".instance" + std::to_string(getpid());
                   if (result != isOwner && !name.ends_with(instance))
                       requestName(name + instance);
               });
}

void MprisService::playerChanged(NowPlayingSource::Change change) {
    if (!connection_)
        return;
    if (change != NowPlayingSource::Change::Elapsed)
        tellChanges();
    else
        g_dbus_connection_emit_signal(connection_.get(), nullptr, mpris::path, mpris::playerInterface,
                                      "Seeked", g_variant_new("(x)", microseconds(player_.elapsed())),
                                      nullptr);
}

void MprisService::tellChanges() {
    Properties now = playerProperties();
    GVariantBuilder changed;
    g_variant_builder_init(&changed, G_VARIANT_TYPE_VARDICT);
    bool any = false;
    for (const auto& [name, value] : now) {
        const auto before = told_.find(name);
        if (before != told_.end() && g_variant_equal(before->second.get(), value.get()))
            continue;
        g_variant_builder_add(&changed, "{sv}", name.c_str(), value.get());
        any = true;
    }
    const Variant arguments = adopt(g_variant_new("(sa{sv}as)", mpris::playerInterface, &changed,
                                                  static_cast<GVariantBuilder*>(nullptr)));
    told_ = std::move(now);
    if (any)
        g_dbus_connection_emit_signal(connection_.get(), nullptr, mpris::path, mpris::propertiesInterface,
                                      "PropertiesChanged", arguments.get(), nullptr);
}

MprisService::Properties MprisService::applicationProperties() const {
    Properties all;
    all["CanQuit"] = boolean(false);
    all["CanRaise"] = boolean(true);
    all["HasTrackList"] = boolean(false);
    all["Identity"] = text(description_.identity);
    all["DesktopEntry"] = text(description_.desktopEntry);
    all["SupportedUriSchemes"] = noTexts();
    all["SupportedMimeTypes"] = noTexts();
    return all;
}

MprisService::Properties MprisService::playerProperties() const {
    const auto info = player_.nowPlayingInfo();
    const bool hasTrack = !info.isNil();
    const bool hasNeighbours = hasTrack && !player_.isRadioStation();
    Properties all;
    all["PlaybackStatus"] = text(!hasTrack ? "Stopped" : player_.isPlaying() ? "Playing" : "Paused");
    for (const char* rate : {"Rate", "MinimumRate", "MaximumRate"})
        all[rate] = number(1);
    all["Metadata"] = metadata();
    all["Volume"] = number(volume_.get());
    all["CanGoNext"] = boolean(hasNeighbours);
    all["CanGoPrevious"] = boolean(hasNeighbours);
    all["CanPlay"] = boolean(hasTrack);
    all["CanPause"] = boolean(hasTrack);
    all["CanSeek"] = boolean(hasTrack && durationOf(info) > 0);
    all["CanControl"] = boolean(true);
    return all;
}

Variant MprisService::metadata() const {
    const auto info = player_.nowPlayingInfo();
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE_VARDICT);
    if (info.isNil())
        return adopt(g_variant_builder_end(&builder));
    g_variant_builder_add(&builder, "{sv}", "mpris:trackid",
                          g_variant_new_object_path(trackOf(info).c_str()));
    if (durationOf(info) > 0)
        g_variant_builder_add(&builder, "{sv}", "mpris:length",
                              g_variant_new_int64(microseconds(durationOf(info))));
    const auto* title = info[media::kMRMediaRemoteNowPlayingInfoTitle].string();
    const auto* artist = info[media::kMRMediaRemoteNowPlayingInfoArtist].string();
    const auto* album = info[media::kMRMediaRemoteNowPlayingInfoAlbum].string();
    if (title)
        g_variant_builder_add(&builder, "{sv}", "xesam:title", text(*title).get());
    if (artist) {
        const std::string name = cleanText(*artist);
        const char* names[] = {name.c_str()};
        g_variant_builder_add(&builder, "{sv}", "xesam:artist", g_variant_new_strv(names, 1));
    }
    if (album)
        g_variant_builder_add(&builder, "{sv}", "xesam:album", text(*album).get());
    return adopt(g_variant_builder_end(&builder));
}

void MprisService::call(const std::string& method, GVariant* arguments) {
    if (const auto command = commands.find(method); command != commands.end()) {
        player_.perform(command->second);
    } else if (method == "Raise") {
        player_.launch();
    } else if (method == "Stop") {
        player_.perform(media::RemoteCommand::Pause);
        player_.seek(0);
    } else if (method == "Seek") {
        gint64 offset = 0;
        g_variant_get(arguments, "(x)", &offset);
        seekBy(static_cast<double>(offset) / 1e6);
    } else if (method == "SetPosition") {
        const char* track = nullptr;
        gint64 position = 0;
        g_variant_get(arguments, "(&ox)", &track, &position);
        setPosition(track, static_cast<double>(position) / 1e6);
    }
}

void MprisService::seekBy(double seconds) {
    const double duration = durationOf(player_.nowPlayingInfo());
    const double target = std::max(0.0, player_.elapsed() + seconds);
    if (duration > 0 && target > duration)
        player_.perform(media::RemoteCommand::NextTrack);
    else
        player_.seek(target);
}

void MprisService::setPosition(const std::string& track, double seconds) {
    const auto info = player_.nowPlayingInfo();
    // A position that was meant for the track before comes too late.
    if (!info.isNil() && track == trackOf(info) && seconds >= 0 && seconds <= durationOf(info))
        player_.seek(seconds);
}

} // namespace playback
