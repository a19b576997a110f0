#include "support/ServerDatabaseTest.h" // the fixture's old place; include the new one
