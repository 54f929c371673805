// Vellumo: a desktop batch image cropper.

#include "app/ApplicationMain.h"

int main(int argc, char** argv) {
    vellumo::ApplicationMain(argc, argv);
}
