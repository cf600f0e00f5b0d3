#include "companies/Demarrage.h"
#include "ui/Application.h"

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    if (!Demarrage(application.arguments())) return 0;
    return application.exec();
}
