// Opens the help file through the library that is found on the path, and fails unless that shows it.
#include "demo/session.h"

int main()
{
    Session session;
    session.call(28, 0, {}); // ends the program with the error, if there is one
    return 0;
}
