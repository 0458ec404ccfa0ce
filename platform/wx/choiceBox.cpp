#include "platform/wx/choiceBox.h"

#include <wx/richmsgdlg.h>

#include "platform/wx/application.h"
#include "platform/wx/messageLines.h"
#include "platform/wx/placement.h"
#include "platform/wx/wxText.h"

namespace brasquelin {

Choice askChoice(const ChoiceQuestion& question) {
    constexpr std::size_t widestLine = 80;
    const long standard = question.neitherByEnter ? wxCANCEL_DEFAULT : wxYES_DEFAULT;
    wxGenericRichMessageDialog box(newestWindow(), brokenIntoLines(toWxLines(question.text), widestLine),
                                   toWx(question.title), wxYES_NO | wxCANCEL | standard | wxICON_QUESTION);
    box.SetYesNoCancelLabels(toWx(question.first), toWx(question.second), toWx(question.neither));
    box.SetEscapeId(wxID_CANCEL);
    keepCentred(box);
    const int answer = box.ShowModal();
    rethrowFromEvents();
    return answer == wxID_YES ? Choice::first : answer == wxID_NO ? Choice::second : Choice::neither;
}

}  // namespace brasquelin
