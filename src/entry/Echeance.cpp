#include "entry/Echeance.h"

#include "session/Session.h"
#include "session/Texte.h"
#include "ui/Boite.h"

#include <QDate>

bool EcheanceDouteuse(const QString& echeance) {
    const QString saisie = DateVersBase(session().DateSaisieCourante);
    const QString limite = QDate::fromString(saisie, QStringLiteral("yyyyMMdd"))
                               .addMonths(3)
                               .toString(QStringLiteral("yyyyMMdd"));
    const QString e = DateVersBase(echeance);
    return e < saisie || e > limite;
}

bool ConfirmerEcheance(const QString& echeance) {
    if (!EcheanceDouteuse(echeance)) return true;
    return ui::Boite(QStringLiteral("Etes-vous certain de votre date d'échéance ?"),
                     QStringLiteral("Confirmation"), ui::Icone::Question,
                     ui::Boutons::OuiNon) == ui::Reponse::Oui;
}
