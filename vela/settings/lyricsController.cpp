#include "vela/settings/lyricsController.h"

#include "platform/runtime/Creation.h"
#include "vela/stores/VelaSettingsManager.h"

namespace vela {

runtime::Class& lyricsController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<lyricsController>("lyricsController", &storedSongsPage::staticClass())
            .method("removedSpecifier:", &lyricsController::removedSpecifier)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(lyricsController)

preferences::PSListController::Specifiers lyricsController::makeSpecifiers() {
    Specifiers rows;
    if (const auto lyrics = VelaSettingsManager::sharedInstance().getLyrics())
        for (const auto& [key, lyric] : *lyrics)
            rows.push_back(songRow(key, "lyrciEditController"));
    return rows;
}

void lyricsController::removedSpecifier(const std::shared_ptr<preferences::PSSpecifier>& specifier) {
    VelaSettingsManager::sharedInstance().removeLyric(specifier->name());
}

} // namespace vela
