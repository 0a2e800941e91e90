# Scenarios that cannot run on a server yet, by what they wait for.
set(ORCUSSCH_NOT_ON_SERVER
)
