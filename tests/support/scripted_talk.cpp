#include "support/scripted_talk.h"

#include <QPdfWriter>

namespace qv::test {

std::shared_ptr<QPagedPaintDevice> ScriptedTalk::choose_printer(std::string_view title)
{
    said.push_back({ "printer", {}, std::string(title) });
    if (pdf_printers.empty())
        return nullptr;
    auto pdf = std::make_shared<QPdfWriter>(QString::fromStdString(pdf_printers.front().string()));
    pdf_printers.pop_front();
    return pdf;
}

} // namespace qv::test
