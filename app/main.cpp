// Vellumo: a desktop batch image cropper.
//
//   vellumo [--recursive] [FILE|FOLDER…]

#include "app/ApplicationMain.h"
#include "app/DesktopLaunch.h"

int main(int argc, char** argv) {
    vellumo::ApplicationMain(argc, argv, vellumo::DesktopLaunch(argc, argv));
}
