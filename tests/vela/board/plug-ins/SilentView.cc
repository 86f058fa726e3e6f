// A plug-in that has none of the optional methods.
#include "VelaPlugin.h"

class SilentView : public vela::plugin::View {
public:
    using View::View;
};
VELA_PRINCIPAL_CLASS(SilentView)
