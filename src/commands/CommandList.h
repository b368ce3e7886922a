// Every command, in the order in which the help lists them. A new one is declared here and entered in the
// list.
#pragma once

#include "commands/Commands.h"

namespace korvel {

extern const Command infoCommand;
extern const Command csvCommand;
extern const Command reportCommand;
extern const Command graphCommand;
extern const Command listingCommand;
extern const Command runModelCommand;
extern const Command batchCommand;
extern const Command runsCommand;
extern const Command helpPageCommand;
extern const Command tableCommand;
extern const Command changesCommand;
extern const Command complianceCommand;
extern const Command fitCommand;
extern const Command sourcesCommand;
extern const Command networkCommand;
extern const Command checkCommand;
extern const Command publishCommand;
extern const Command atlasCommand;
extern const Command exploreCommand;

inline const Command* const commandList[] = {
    &infoCommand,       &csvCommand,   &reportCommand,  &graphCommand,   &listingCommand,
    &runModelCommand,   &batchCommand, &runsCommand,    &tableCommand,   &changesCommand,
    &complianceCommand, &fitCommand,   &sourcesCommand, &networkCommand, &checkCommand,
    &publishCommand,    &atlasCommand, &exploreCommand, &helpPageCommand};

} // namespace korvel
