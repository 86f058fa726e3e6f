#include "Notebook.h"

#include <algorithm>
#include <charconv>

namespace notesplugin {

namespace {
constexpr std::string_view prefix = "note-";
constexpr std::string_view suffix = ".txt";
constexpr NoteId largestId = 1'000'000'000'000;

std::string fileName(NoteId id) {
    return std::string(prefix) + std::to_string(id) + std::string(suffix);
}

/// The number in a name that fileName() makes.
std::optional<NoteId> idOf(std::string_view name) {
    if (!name.starts_with(prefix))
        return std::nullopt;
    NoteId id = 0;
    const std::string_view digits = name.substr(prefix.size());
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), id);
    if (error != std::errc{} || id == 0 || id > largestId || fileName(id) != name)
        return std::nullopt;
    return id;
}
} // namespace

Notebook::Notebook(vela::plugin::Storage& storage, std::function<void(std::string_view)> log)
    : storage_(storage), log_(std::move(log)) {
    load();
}

void Notebook::load() {
    for (const std::string& name : storage_.names()) {
        const auto id = idOf(name);
        if (!id)
            continue;
        nextId_ = std::max(nextId_, *id + 1);
        const auto contents = storage_.read(name);
        const auto note = contents ? decodeNote(*contents) : std::nullopt;
        if (note) {
            entries_[*id] = {note->created, summarize(*id, note->modified, note->text)};
            continue;
        }
        ++damagedFiles_;
        if (contents)
            setAside(name, *contents);
        else
            log_(name + " cannot be read");
    }
}

void Notebook::setAside(const std::string& name, const std::string& contents) {
    // A copy that was made before, when the original could not be removed, serves again.
    std::string copy;
    for (int number = 1; copy.empty(); ++number) {
        const std::string candidate = "damaged-" + std::to_string(number) + "-" + name;
        const auto there = storage_.read(candidate);
        const auto names = there ? std::vector<std::string>{} : storage_.names();
        const bool isFree = !there && std::find(names.begin(), names.end(), candidate) == names.end();
        if (there == contents || (isFree && storage_.write(candidate, contents)))
            copy = candidate;
        else if (isFree)
            break; // the disk is full, or the like
    }
    if (copy.empty()) {
        log_(name + " is damaged and was left where it is");
        return;
    }
    storage_.remove(name);
    log_(name + " is damaged and was set aside as " + copy);
}

std::vector<NoteSummary> Notebook::summaries() const {
    std::vector<NoteSummary> summaries;
    for (const auto& [id, entry] : entries_)
        summaries.push_back(entry.summary);
    std::sort(summaries.begin(), summaries.end(), [](const NoteSummary& left, const NoteSummary& right) {
        return std::pair(left.modified, left.id) > std::pair(right.modified, right.id);
    });
    return summaries;
}

std::optional<std::string> Notebook::text(NoteId id) const {
    if (!entries_.contains(id))
        return std::nullopt;
    const auto contents = storage_.read(fileName(id));
    auto note = contents ? decodeNote(*contents) : std::nullopt;
    return note ? std::optional(std::move(note->text)) : std::nullopt;
}

std::optional<NoteId> Notebook::add(std::string text, std::int64_t now) {
    const NoteId id = nextId_;
    if (!write(id, {now, now, std::move(text)}))
        return std::nullopt;
    ++nextId_;
    return id;
}

bool Notebook::update(NoteId id, std::string text, std::int64_t now) {
    const auto entry = entries_.find(id);
    return entry != entries_.end() && write(id, {entry->second.created, now, std::move(text)});
}

bool Notebook::write(NoteId id, const Note& note) {
    if (!storage_.write(fileName(id), encodeNote(note)))
        return false;
    entries_[id] = {note.created, summarize(id, note.modified, note.text)};
    return true;
}

bool Notebook::remove(NoteId id) {
    if (!entries_.contains(id) || !storage_.remove(fileName(id)))
        return false;
    entries_.erase(id);
    return true;
}

} // namespace notesplugin
