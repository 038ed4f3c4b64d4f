// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "window/ToolkitRemarks.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QtDebug>

namespace {

std::string saidBy(const char* styleSheet) {
    testing::internal::CaptureStderr();
    QPushButton button;
    button.setStyleSheet(styleSheet);
    button.ensurePolished();
    qWarning("another remark");
    return testing::internal::GetCapturedStderr();
}

TEST(ToolkitRemarks, OnlyTheOneAboutIconSizeIsHidden) {
    constexpr char kIconSize[] = "QPushButton { qproperty-icon-size: 18px 18px; }";
    EXPECT_NE(saidBy(kIconSize).find("icon-size"), std::string::npos);
    hideIconSizeRemark();
    hideIconSizeRemark();
    EXPECT_EQ(saidBy(kIconSize).find("icon-size"), std::string::npos);
    const std::string others = saidBy("QPushButton { qproperty-nothing: 1; }");
    EXPECT_NE(others.find("\"nothing\""), std::string::npos) << others;
    EXPECT_NE(others.find("another remark"), std::string::npos) << others;
    qInstallMessageHandler(nullptr);
}

}  // namespace
