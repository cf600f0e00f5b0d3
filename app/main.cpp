#include "companies/Demarrage.h"
#include "ui/Application.h"
#include "ui/Fin.h"

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    return ui::ExecuterSousGarde([&] {
        if (!Demarrage(application.arguments())) return ui::CodeFin();
        return application.exec();
    });
}
