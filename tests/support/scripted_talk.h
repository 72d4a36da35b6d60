#pragma once

#include "core/user_talk.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace qv::test {

// A user who answers from a script and remembers everything the program said.
class ScriptedTalk : public UserTalk
{
public:
    struct Said
    {
        std::string kind; // "message", "ask", "file", "text", "progress", "beep", "printer"
        std::string text;
        std::string title;
    };

    std::deque<Answer> answers;
    std::deque<std::vector<std::filesystem::path>> files;
    // Each print goes into the next of these PDF files; with none left the user cancels the print dialog.
    std::deque<std::filesystem::path> pdf_printers;
    std::vector<Said> said;
    // Runs while a question is open, before it is answered: what the screen shows meanwhile.
    std::function<void()> while_asking;

    void message(std::string_view text, std::string_view title = {}) override
    {
        said.push_back({ "message", std::string(text), std::string(title) });
    }
    Answer ask(std::string_view question, std::string_view title, Buttons buttons) override
    {
        said.push_back({ "ask", std::string(question), std::string(title) });
        if (while_asking)
            while_asking();
        if (answers.empty())
            return buttons == Buttons::Ok || buttons == Buttons::OkCancel ? Answer::Ok : Answer::No;
        Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::vector<std::filesystem::path> choose_files(const FileRequest& request) override
    {
        said.push_back({ "file", request.default_name, request.title });
        if (files.empty())
            return {};
        auto chosen = files.front();
        files.pop_front();
        return chosen;
    }
    void show_text(const std::filesystem::path& file, std::string_view title) override
    {
        said.push_back({ "text", file.string(), std::string(title) });
    }
    void progress(std::string_view label) override { said.push_back({ "progress", std::string(label), {} }); }
    void beep() override { said.push_back({ "beep", {}, {} }); }
    std::shared_ptr<QPagedPaintDevice> choose_printer(std::string_view title) override;

    std::vector<std::string> messages() const
    {
        std::vector<std::string> out;
        for (const auto& s : said)
            if (s.kind == "message")
                out.push_back(s.text);
        return out;
    }
    std::string last_message() const
    {
        for (auto it = said.rbegin(); it != said.rend(); ++it)
            if (it->kind == "message")
                return it->text;
        return {};
    }
    void clear() { said.clear(); }
};

} // namespace qv::test
