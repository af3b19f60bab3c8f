#include "notes/LoadReports.h"

#include <algorithm>

#include "forms/Application.h"
#include "forms/MsgBox.h"

void LoadReports::Show(const base::RuntimeError& error,
                       const std::vector<forms::FileEntry>& listing, const std::string& file) {
    if (shownListing != listing) {
        shownListing = listing;
        shown.clear();
    }
    if (error == base::ErrorNumber::SubscriptOutOfRange) {
        const std::uint64_t action = forms::Application::Current().CurrentAction().number;
        if (std::exchange(fullShownIn, action) == action) {
            return;
        }
    } else if (!shown.insert({error.number(), file}).second) {
        return;
    }
    forms::MsgBox("Error Number: " + std::to_string(error.number()) + ") - " + error.description(),
                  {}, "Error Loading Notes Array");
}

bool LoadReports::HasShown(const std::string& file) const {
    return std::any_of(shown.begin(), shown.end(),
                       [&](const auto& report) { return report.second == file; });
}
