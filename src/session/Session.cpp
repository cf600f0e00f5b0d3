#include "session/Session.h"

#include "base/ErreurExecution.h"
#include "base/Montant.h"
#include "session/FichierProfil.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QDir>

Session& session() {
    static Session s;
    return s;
}

QString CleCourante() {
    return CleExercice(session().NumSocCourante, session().ExerciceCourant);
}

QString NomMois(int mois) {
    const QStringList& noms = session().NomsMois;
    if (mois < 1 || mois > noms.size())
        LeverErreurExecution(
            QStringLiteral("Indice en dehors de la plage (mois %1 dans la liste des mois).")
                .arg(mois));
    return noms.at(mois - 1);
}

void MajFormatMontant(int nbDecimales) {
    Session& s = session();
    s.Decimales = ConstruireDecimales(nbDecimales);
    s.FormatMontant = ConstruireFormatMontant(s.Decimales, s.SymboleMonnaie);
}

std::int16_t CalculMoisDebutExercice(const QString& dateDebut) {
    // Deuxième chiffre du mois puis premier chiffre du jour : valeur voulue telle quelle.
    return static_cast<std::int16_t>(dateDebut.mid(5, 2).toInt());
}

int PlanSuffisant() {
    try {
        SQLite::Statement q(Base(), "SELECT count(*) FROM Compte WHERE CleCpt=?");
        q.bind(1, CleCourante().toStdString());
        return q.executeStep() ? q.getColumn(0).getInt() : 0;
    } catch (const SQLite::Exception&) {
        return 0;
    }
}

QString CheminIni() {
    return QDir(session().DossierDonnees).filePath(QStringLiteral("maroval.ini"));
}

QString DossierDisquette() {
    const QString dossier = FichierProfil(CheminIni())
                                .Lire(QStringLiteral("Options"), QStringLiteral("Disquette"))
                                .trimmed();
    return dossier.isEmpty() ? QStringLiteral("/media/floppy") : dossier;
}

QString AfficheMontant(Montant montant) {
    return FormaterMontant(montant, session().FormatMontant);
}
