// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

#include "core/PostProcessorInt.h"

/// The one dialect that programs are written in.
class PostProcessorImpl : public PostProcessorInt {
public:
    PostProcessorImpl();

    /// The process-wide instance, made on the first call and never destroyed. Not guarded: all
    /// callers run on the user-interface thread.
    static PostProcessorImpl* GetPostProcessor();

    void CreateMap() override;
    std::map<std::string, std::string> GetMap() const override;
    /// What index access to a copy of the table gives: an empty code for a key that is not in it.
    const std::string& GetCode(const std::string& key) const;

private:
    std::map<std::string, std::string> m_postProcessMap;
    static PostProcessorImpl* m_PostProcessorImpl;
};
