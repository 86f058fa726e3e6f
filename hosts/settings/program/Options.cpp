#include "hosts/settings/program/Options.h"

namespace settings {

namespace {

using Action = Options::Action;

/// Takes the arguments one after the other.
class Parser {
public:
    explicit Parser(const std::vector<std::string>& arguments) : arguments_(arguments) {}

    Options parse() {
        while (next_ < arguments_.size())
            takeOption(arguments_[next_++]);
        return options_;
    }

private:
    void takeOption(const std::string& option) {
        if (option == "--help" || option == "-h")
            setAction(Action::Help);
        else if (option == "--version")
            setAction(Action::Version);
        else if (option == "--list")
            setAction(Action::List);
        else if (option == "--get") {
            setAction(Action::Get);
            options_.key = take(option, "a KEY");
        } else if (option == "--set") {
            setAction(Action::Set);
            options_.key = take(option, "a KEY and a VALUE");
            options_.value = take(option, "a VALUE");
        } else
            takeSetting(option);
    }

    /// Both "--root DIR" and "--root=DIR".
    void takeSetting(const std::string& option) {
        const std::size_t equals = option.find('=');
        const std::string name = option.substr(0, equals);
        if (name != "--root" && name != "--extension" && name != "--applications")
            throw OptionsError("there is no option \"" + option + "\"");
        const std::string what = name == "--applications" ? "phone or desktop" : "a path";
        const std::string value =
            equals == std::string::npos ? take(option, what) : option.substr(equals + 1);
        if (name == "--applications")
            return setApplications(value);
        if (value.empty())
            throw OptionsError(name + ": the path is empty");
        (name == "--root" ? options_.root : options_.extension) = value;
    }

    void setApplications(const std::string& whose) {
        if (whose != "phone" && whose != "desktop")
            throw OptionsError("applications are those of the phone or the desktop, not of \"" + whose +
                               "\"");
        options_.applications =
            whose == "phone" ? Options::Applications::Phone : Options::Applications::Desktop;
    }

    void setAction(Action action) {
        if (options_.action != Action::Window)
            throw OptionsError("only one of --list, --get, --set, --help and --version goes at a time");
        options_.action = action;
    }

    const std::string& take(const std::string& option, const std::string& what) {
        if (next_ == arguments_.size())
            throw OptionsError(option + " lacks " + what);
        return arguments_[next_++];
    }

    const std::vector<std::string>& arguments_;
    std::size_t next_ = 0;
    Options options_;
};

} // namespace

Options Options::parse(const std::vector<std::string>& arguments) {
    return Parser(arguments).parse();
}

std::string Options::helpText() {
    return R"(Usage: vela-settings [OPTION]...

Shows the settings of the extension Vela3.dylib in a window, or reads and writes them from the shell.

  --list            list all settings: key, value, and what values there are
  --get KEY         print the value of a setting
  --set KEY VALUE   change a setting; switches take on and off
  --root DIR        the directory that is the device's disk (default: the phone's, vela3/device in the user's
                    data directory)
  --applications phone|desktop
                    list the simulated phone's applications (default), or those of this desktop, as a running
                    vela-session knows them
  --extension FILE  load this extension instead of the installed one
  --help            show this and exit
  --version         show the version and exit

The exit code is 0 for success, 1 when --get is asked for a setting that has no value, and 2 when an option, a
key, a value or a file is at fault.
)";
}

} // namespace settings
