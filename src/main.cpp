#include "app/ui/LWApplication.h"

int main(int argc, char *argv[])
{
    return LWApplication::run(argc, argv);
}
