#include "ui/Application.h"

#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace ui {

namespace {

std::function<QString(const std::exception&)>& Descripteur() {
    static std::function<QString(const std::exception&)> d;
    return d;
}

} // namespace

void FixerDescriptionErreur(std::function<QString(const std::exception&)> description) {
    Descripteur() = std::move(description);
}

QString DescriptionErreur(const std::exception& erreur) {
    if (Descripteur()) {
        const QString texte = Descripteur()(erreur);
        if (!texte.isEmpty()) return texte;
    }
    return QString::fromUtf8(erreur.what());
}

void SignalerErreurExecution(const QString& description) {
    static bool enCours = false;
    if (!enCours) {
        enCours = true;
        Boite(description, QStringLiteral("Erreur d'exécution"), Icone::Critique);
        enCours = false;
    }
    try {
        TerminerProgramme(1);
    } catch (const FinProgramme&) {
    }
}

int ExecuterSousGarde(const std::function<int()>& travail) {
    try {
        return travail();
    } catch (const FinProgramme& fin) {
        return fin.code;
    } catch (const std::exception& erreur) {
        SignalerErreurExecution(DescriptionErreur(erreur));
    } catch (...) {
        SignalerErreurExecution(QStringLiteral("Erreur inconnue"));
    }
    return CodeFin() != 0 ? CodeFin() : 1;
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    // Le bureau rattache les fenêtres à l'entrée de menu (icône, nom dans la barre des tâches).
    setDesktopFileName(QStringLiteral("fr.maroval.Maroval"));
    // Textes des dialogues standard de Qt en français quand la traduction est installée.
    auto* traduction = new QTranslator(this);
    if (traduction->load(QLocale(QLocale::French), QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(traduction);
    else
        delete traduction;
}

bool Application::notify(QObject* objet, QEvent* evenement) {
    try {
        return QApplication::notify(objet, evenement);
    } catch (const FinProgramme&) {
        // Fin observée par un test : rien d'autre à faire.
    } catch (const std::exception& erreur) {
        SignalerErreurExecution(DescriptionErreur(erreur));
    } catch (...) {
        SignalerErreurExecution(QStringLiteral("Erreur inconnue"));
    }
    return false;
}

} // namespace ui
