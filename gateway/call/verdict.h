// How a command's body ends. Nothing raises inside a body: raising leaves without destructors, so
// it is left to the outermost function, when no object of ours is alive.
#pragma once

class [[nodiscard]] Verdict {
public:
    static constexpr Verdict done() { return {false, nullptr}; }
    // Refused with a text that lives as long as the process, a literal as a rule.
    static constexpr Verdict refuse(const char *text) { return {true, text}; }
    // Failed with the message in LastError.
    static constexpr Verdict failed() { return {true, nullptr}; }
    // done() or failed(), after an operation that leaves its message in LastError.
    static constexpr Verdict of(bool success) { return success ? done() : failed(); }

    constexpr bool isDone() const { return !isFailure; }
    constexpr const char *literal() const { return text; } // null: the message stands in LastError

private:
    constexpr Verdict(bool failure, const char *literalText) : isFailure(failure), text(literalText) {}

    bool isFailure;
    const char *text;
};
