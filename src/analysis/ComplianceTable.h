// Compliance of a run as tables: by reach, by determinand or river, by point, by station.
#pragma once

#include "analysis/Compliance.h"
#include "analysis/ReachGroups.h"
#include "study/Study.h"
#include "tables/Table.h"

#include <set>
#include <vector>

namespace korvel {

struct ComplianceRequest {
    std::set<int> determinands; // by number
    std::set<int> lowIsBad;
    ReachChoice reaches;
    double deterioration = DefaultDeterioration; // percent
};

// A run that is judged, and the base that it is held against where it isn't the base itself.
struct JudgedRun {
    StudyRun run;
    std::optional<StudyRun> base;
};

struct ComplianceRow {
    int place = 0; // of the reach in the run
    JudgedDeterminand determinand;
    ReachCompliance reach;
    std::optional<ComplianceChange> change; // none of the base
};

struct OverallRow {
    int place = 0;
    OverallVerdict overall;
};

struct ComplianceSumRow {
    ReachGroup group;
    JudgedDeterminand determinand;
    ComplianceSums sums;
    int reachesFailing = 0;
    int reachesJudged = 0;
};

struct StationRow {
    JudgedDeterminand determinand;
    StationJudgement station;
};

// What all stations of a run say together, and the first of them.
struct Stations {
    std::vector<StationRow> first;
    StationAgreement agreement;
    std::size_t count = 0;
};

// The determinands asked for that are judged, as this run judges them.
std::vector<JudgedDeterminand> judgedBy(const StudyRun& run, const ComplianceRequest& request);

std::vector<ComplianceRow> complianceRows(const JudgedRun& run, const ComplianceRequest& request);
// One a reach, also of those where nothing is judged.
std::vector<OverallRow> overallRows(const StudyRun& run, const ComplianceRequest& request,
                                    const std::vector<ComplianceRow>& rows);
std::vector<ComplianceSumRow> complianceSums(const StudyRun& run, const std::vector<ReachGroup>& groups,
                                             const ComplianceRequest& request);
// Of the whole run, by determinand, when its rows by reach are at hand.
std::vector<ComplianceSumRow> complianceSums(const StudyRun& run, const ComplianceRequest& request,
                                             const std::vector<ComplianceRow>& rows);
// In the order of points, at each point in that of the determinands.
std::vector<StationRow> stationRows(const StudyRun& run, const ComplianceRequest& request);
Stations firstStations(const StudyRun& run, const ComplianceRequest& request, std::size_t most);

// The reaches by determinands, and the overall verdict of each reach.
std::vector<Table> complianceByReach(const JudgedRun& run, const ComplianceRequest& request);
Table complianceByDeterminand(const StudyRun& run, const ComplianceRequest& request);
Table complianceByRiver(const StudyRun& run, const Network& network, const ComplianceRequest& request);
Table complianceByPoint(const StudyRun& run, const ComplianceRequest& request);
Table complianceByStation(const StudyRun& run, const ComplianceRequest& request);
// When the rows are at hand.
Table stationTable(const StudyRun& run, std::vector<StationRow> stations);
Table reachTable(const StudyRun& run, std::vector<ComplianceRow> rows);
Table determinandTable(const StudyRun& run, std::vector<ComplianceSumRow> sums);

} // namespace korvel
