#include "platform/MciCommandParser.h"

#include <cctype>
#include <charconv>
#include <vector>

#include "platform/MciCommands.h"

namespace tessaly {

bool sameWord(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i]))) return false;
    return true;
}

namespace {

struct Token {
    std::string text;
    std::size_t end;  // offset just past the token in the command
};

// Words separated by blanks; a word in double quotes may hold blanks.
std::vector<Token> tokenize(std::string_view text) {
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < text.size()) {
        if (text[i] == ' ' || text[i] == '\t') {
            ++i;
            continue;
        }
        std::string word;
        if (text[i] == '"') {
            std::size_t close = text.find('"', i + 1);
            if (close == std::string_view::npos) close = text.size();
            word = std::string(text.substr(i + 1, close - i - 1));
            i = close < text.size() ? close + 1 : close;
        } else {
            std::size_t end = text.find_first_of(" \t", i);
            if (end == std::string_view::npos) end = text.size();
            word = std::string(text.substr(i, end - i));
            i = end;
        }
        tokens.push_back({std::move(word), i});
    }
    return tokens;
}

std::optional<long> number(const std::string& text) {
    long value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text), tokens_(tokenize(text)) {}

    ParsedMci parse() {
        if (tokens_.empty()) return fail(kMciUnknownCommand);
        const std::string& verb = tokens_[0].text;
        if (sameWord(verb, "open")) return open();
        if (tokens_.size() < 2) return fail(kMciBadParameter);
        out_.command.alias = tokens_[1].text;
        next_ = 2;
        if (sameWord(verb, "close")) return simple(MciVerb::Close);
        if (sameWord(verb, "record")) return simple(MciVerb::Record);
        if (sameWord(verb, "stop")) return simple(MciVerb::Stop);
        if (sameWord(verb, "set")) return set();
        if (sameWord(verb, "save")) return save();
        if (sameWord(verb, "seek")) return seek();
        if (sameWord(verb, "play")) return play();
        if (sameWord(verb, "status")) return status();
        return fail(kMciUnknownCommand);
    }

private:
    ParsedMci fail(int error) {
        out_.error = error;
        return out_;
    }
    bool more() const { return next_ < tokens_.size(); }
    bool take(std::string_view keyword) {
        if (!more() || !sameWord(tokens_[next_].text, keyword)) return false;
        ++next_;
        return true;
    }
    std::optional<std::string> word() {
        if (!more()) return std::nullopt;
        return tokens_[next_++].text;
    }
    ParsedMci done() { return more() ? fail(kMciUnknownCommand) : out_; }

    ParsedMci simple(MciVerb verb) {
        out_.command.verb = verb;
        return done();
    }

    // open new type T alias A | open ELEMENT type T alias A
    ParsedMci open() {
        MciCommand& c = out_.command;
        c.verb = MciVerb::Open;
        next_ = 1;
        auto element = word();
        if (!element) return fail(kMciBadParameter);
        c.newRecording = sameWord(*element, "new");
        if (!c.newRecording) c.element = *element;
        // A name with a blank in it leaves a piece where "type" should be.
        if (!take("type")) return fail(kMciUnknownCommand);
        auto type = word();
        if (!type || sameWord(*type, "alias")) return fail(kMciBadParameter);
        c.type = *type;
        if (!take("alias")) return fail(kMciUnknownCommand);
        auto alias = word();
        if (!alias) return fail(kMciBadParameter);
        c.alias = *alias;
        return done();
    }

    ParsedMci set() {
        MciCommand& c = out_.command;
        c.verb = MciVerb::Set;
        auto valued = [&](MciSetting setting) {
            c.setting = setting;
            auto text = word();
            std::optional<long> value = text ? number(*text) : std::nullopt;
            if (!value) return fail(kMciBadParameter);
            c.value = *value;
            return done();
        };
        if (take("assemble")) {
            if (!take("record")) return fail(kMciUnknownCommand);
            c.setting = MciSetting::AssembleRecord;
            if (take("on")) c.value = 1;
            else if (take("off")) c.value = 0;
            else return fail(kMciBadParameter);
            return done();
        }
        if (take("file")) {
            if (!take("format")) return fail(kMciUnknownCommand);
        } else if (!take("format")) {
            if (take("algorithm")) {
                c.setting = MciSetting::AlgorithmPcm;
                return take("pcm") ? done() : fail(kMciBadParameter);
            }
            if (take("bitspersample")) return valued(MciSetting::BitsPerSample);
            if (take("samplespersec")) return valued(MciSetting::SamplesPerSec);
            if (take("channels")) return valued(MciSetting::Channels);
            if (take("time")) {
                c.setting = MciSetting::TimeFormatMs;
                if (!take("format")) return fail(kMciUnknownCommand);
                return take("ms") || take("milliseconds") ? done() : fail(kMciBadParameter);
            }
            return fail(kMciUnknownCommand);
        }
        // [file] format tag pcm
        c.setting = MciSetting::FormatTagPcm;
        if (!take("tag")) return fail(kMciUnknownCommand);
        return take("pcm") ? done() : fail(kMciBadParameter);
    }

    // save A PATH: the path is the rest of the line, so it may hold blanks.
    ParsedMci save() {
        MciCommand& c = out_.command;
        c.verb = MciVerb::Save;
        if (!more()) return fail(kMciBadParameter);
        std::size_t from = tokens_[1].end;
        std::string_view rest = text_.substr(from);
        while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) rest.remove_prefix(1);
        while (!rest.empty() && (rest.back() == ' ' || rest.back() == '\t')) rest.remove_suffix(1);
        if (rest.size() >= 2 && rest.front() == '"' && rest.back() == '"') rest = rest.substr(1, rest.size() - 2);
        if (rest.empty()) return fail(kMciBadParameter);
        c.path = std::string(rest);
        return out_;
    }

    ParsedMci seek() {
        MciCommand& c = out_.command;
        c.verb = MciVerb::Seek;
        if (!take("to")) return fail(kMciBadParameter);
        if (take("start")) {
            c.positionMs = 0;
            return done();
        }
        auto text = word();
        std::optional<long> at = text ? number(*text) : std::nullopt;
        if (!at || *at < 0) return fail(kMciBadParameter);
        c.positionMs = *at;
        return done();
    }

    ParsedMci play() {
        MciCommand& c = out_.command;
        c.verb = MciVerb::Play;
        if (take("from")) {
            auto text = word();
            std::optional<long> from = text ? number(*text) : std::nullopt;
            if (!from || *from < 0) return fail(kMciBadParameter);
            c.positionMs = *from;
        }
        return done();
    }

    ParsedMci status() {
        MciCommand& c = out_.command;
        c.verb = MciVerb::Status;
        auto item = word();
        if (!item) return fail(kMciBadParameter);
        c.item = *item;
        return done();
    }

    std::string_view text_;
    std::vector<Token> tokens_;
    std::size_t next_ = 0;
    ParsedMci out_;
};

}  // namespace

ParsedMci parseMciCommand(std::string_view text) { return Parser(text).parse(); }

}  // namespace tessaly
