#include <stdio.h>
#include <stdlib.h>

int main(int argc, char *argv[])
{
    return EXIT_SUCCESS;
}
