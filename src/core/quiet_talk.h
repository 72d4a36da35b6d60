#pragma once

#include "core/session_host.h"
#include "core/user_talk.h"

#include <filesystem>
#include <string>

namespace qv {

// A user without a screen, for runs that no one watches (benchmarks, fuzzing, tools): says nothing, keeps the
// last message, chooses no file and gives the same answer to every question.
class QuietTalk : public UserTalk
{
public:
    explicit QuietTalk(Answer answer = Answer::No)
        : m_answer(answer)
    {
    }

    std::string last_message;

    void message(std::string_view text, std::string_view) override { last_message = text; }
    Answer ask(std::string_view, std::string_view, Buttons) override { return m_answer; }
    std::vector<std::filesystem::path> choose_files(const FileRequest&) override { return {}; }
    void show_text(const std::filesystem::path&, std::string_view) override { }
    void progress(std::string_view) override { }
    void beep() override { }

private:
    Answer m_answer;
};

// A main window without windows.
class QuietHost : public SessionHost
{
public:
    void load_all_forms() override { }
    void unload_all_forms() override { }
    bool leave_draw() override { return true; }
    void cancel_list1() override { }
    void refresh_draw_on_entry() override { }
    void refresh_lists(Lists) override { }
    void show_area(Area, const Markers&) override { }
    void set_generics(const std::string&, const std::string&) override { }
    void busy(bool) override { }
    void defer(std::function<void()>) override { }
    void end_process() override { }
};

} // namespace qv
