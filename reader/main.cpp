#include "reader/Reader.h"

int main(int argumentCount, char* arguments[]) {
    nookwise::runReader({.role = argumentCount == 2 ? arguments[1] : ""});
}
