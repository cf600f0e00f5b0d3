#include "backup/ErreurSauvegarde.h"

#include "ui/Boite.h"
#include "ui/Fin.h"

#include <SQLiteCpp/Exception.h>
#include <exception>

ErreurSauvegarde::ErreurSauvegarde(int n, const QString& d, const QString& s)
    : std::runtime_error(d.toStdString()), numero(n), description(d), source(s) {}

QString TexteErreurOrigine(const QString& module, const QString& routine, int ligne, int numero,
                           const QString& description) {
    return QStringLiteral(" - Module %1 - %2 - Ligne %3\n"
                          "Numero d'erreur : %4 Description : %5\n"
                          "Appuyez sur les touches [Alt] [Impr. Ecran] pour copier cette erreur.\n"
                          "Collez-la ensuite dans Word, MsPaint ou Wordpad pour pouvoir "
                          "l'envoyer par email.")
        .arg(module, routine)
        .arg(ligne)
        .arg(numero)
        .arg(description);
}

void AfficherErreurOrigine(const QString& module, const QString& routine, int ligne) {
    int numero = 0;
    QString description;
    try {
        throw;
    } catch (const ui::FinProgramme&) {
        throw; // la fin du programme n'est pas une erreur à montrer
    } catch (const ErreurSauvegarde& e) {
        numero = e.Numero();
        description = e.Description();
    } catch (const SQLite::Exception& e) {
        numero = e.getErrorCode();
        description = QString::fromUtf8(e.what());
    } catch (const std::exception& e) {
        numero = -1;
        description = QString::fromUtf8(e.what());
    } catch (...) {
        numero = -1;
        description = QStringLiteral("Erreur inconnue");
    }
    ui::Boite(TexteErreurOrigine(module, routine, ligne, numero, description),
              QStringLiteral("Une erreur est survenue"), ui::Icone::Critique);
}
