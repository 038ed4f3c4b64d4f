// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: MIT
#include "core/PostProcessorImpl.h"

PostProcessorImpl* PostProcessorImpl::m_PostProcessorImpl = nullptr;

PostProcessorImpl::PostProcessorImpl() {
    PostProcessorImpl::CreateMap();
}

PostProcessorImpl* PostProcessorImpl::GetPostProcessor() {
    if (m_PostProcessorImpl == nullptr) {
        m_PostProcessorImpl = new PostProcessorImpl;
    }
    return m_PostProcessorImpl;
}

void PostProcessorImpl::CreateMap() {
    // The rapid code has two characters and the linear one three; both are written exactly so.
    m_postProcessMap["LINEAR"] = "G01";
    m_postProcessMap["RAPID"] = "G0";
    m_postProcessMap["X"] = "X";
    m_postProcessMap["Y"] = "Y";
    m_postProcessMap["Z"] = "Z";
    m_postProcessMap["G02"] = "G02";
    m_postProcessMap["G03"] = "G03";
    m_postProcessMap["I"] = "I";
    m_postProcessMap["J"] = "J";
    m_postProcessMap["K"] = "K";
    m_postProcessMap["R"] = "R";
    m_postProcessMap["SimpleDrillCycle"] = "G81";
    m_postProcessMap["DrillCycleWithDwell"] = "G82";
    m_postProcessMap["PeckDrillCycle"] = "G83";
    m_postProcessMap["ReturnToRLevelInCannedCycle"] = "G99";
    m_postProcessMap["CancelCannedCycle"] = "G80";
}

std::map<std::string, std::string> PostProcessorImpl::GetMap() const {
    return m_postProcessMap;
}

const std::string& PostProcessorImpl::GetCode(const std::string& key) const {
    static const std::string none;
    const auto row = m_postProcessMap.find(key);
    return row == m_postProcessMap.end() ? none : row->second;
}
