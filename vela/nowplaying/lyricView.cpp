#include "vela/nowplaying/lyricView.h"

using namespace toolkit;

namespace vela {

runtime::Class& lyricView::staticClass() {
    static runtime::Class& cls =
        runtime::ClassBuilder<lyricView>("lyricView", &UITextView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(lyricView)

lyricView::lyricView(Rect frame) : UITextView(frame) {
    setUserInteractionEnabled(true);
    setShowsHorizontalScrollIndicator(false);
    setShowsVerticalScrollIndicator(false);
    setEditable(false);
    setSelectable(false);
    setTextAlignment(TextAlignment::Center);
    setFont(Font::system(20));
    setTextColor(Color::white(1));
    setBackgroundColor(Color::clear());
    setText("Lyric");
}

} // namespace vela
