#include "consultation/Export.h"

#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <cstdlib>

namespace {

std::optional<bool> applicationImposee;

// Chiffres d'un montant en dix-millièmes, les zéros de fin de la partie décimale retirés.
QString ChiffresMontant(Montant montant, const QString& signeDecimal) {
    const std::int64_t v = montant.dixMilliemes();
    const std::uint64_t a =
        v < 0 ? 0 - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
    QString texte = QString::number(a / 10000);
    QString decimales = QStringLiteral("%1").arg(a % 10000, 4, 10, QLatin1Char('0'));
    while (decimales.endsWith(QLatin1Char('0')))
        decimales.chop(1);
    if (!decimales.isEmpty()) texte += signeDecimal + decimales;
    return v < 0 ? QLatin1Char('-') + texte : texte;
}

// Programme associé à un type de fichier selon xdg-mime ; faux sans réponse en deux secondes.
bool ProgrammeXdg(const QString& fichier) {
    const QString type = QMimeDatabase().mimeTypeForFile(fichier).name();
    const QString outil = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (outil.isEmpty() || type.isEmpty()) return false;
    QProcess p;
    p.start(outil, {QStringLiteral("query"), QStringLiteral("default"), type});
    if (!p.waitForFinished(2000)) {
        p.kill();
        p.waitForFinished(500);
        return false;
    }
    return p.exitCode() == 0 && !p.readAllStandardOutput().trimmed().isEmpty();
}

} // namespace

QString SeparateurListe() {
    const QString decimal = QLocale().decimalPoint();
    return decimal == QLatin1String(",") ? QStringLiteral(";") : QStringLiteral(",");
}

bool ApplicationAssociee(const QString& Fichier) {
    if (applicationImposee) return *applicationImposee;
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    // Le système choisit lui-même le programme à l'ouverture.
    return QFileInfo::exists(Fichier);
#else
    return ProgrammeXdg(Fichier);
#endif
}

void FixerApplicationAssociee(std::optional<bool> reponse) {
    applicationImposee = reponse;
}

QString NombreSimple(Montant montant) {
    const QString t = ChiffresMontant(montant, QStringLiteral("."));
    return montant < Montant() ? t : QLatin1Char(' ') + t;
}

QString NombreSimple(double valeur) {
    QString t = QString::number(valeur, 'g', 15);
    return valeur < 0 ? t : QLatin1Char(' ') + t;
}

QString NombreLocal(Montant montant) {
    return ChiffresMontant(montant, QLocale().decimalPoint());
}

FichierCsv::FichierCsv(const QString& chemin, const QString& separateur_)
    : fichier(chemin), separateur(separateur_) {
    if (!fichier.open(QIODevice::WriteOnly | QIODevice::Truncate))
        LeverErreurExecution(QStringLiteral("Le fichier « %1 » ne peut pas être écrit : %2")
                                 .arg(chemin, fichier.errorString()));
    Ecrire(QByteArray("\xEF\xBB\xBF"));
}

// Un export interrompu (disque plein, erreur) laisse l'ancien fichier tel qu'il était.
FichierCsv::~FichierCsv() {
    if (fichier.isOpen()) fichier.cancelWriting();
}

void FichierCsv::EcrireLigne(const QStringList& champs, bool guillemets) {
    QStringList sortie;
    sortie.reserve(champs.size());
    for (const QString& c : champs)
        sortie << (guillemets ? QLatin1Char('"') + c + QLatin1Char('"') : c);
    Ecrire(sortie.join(separateur).toUtf8() + "\r\n");
}

void FichierCsv::Fermer() {
    if (!fichier.isOpen()) return;
    if (!fichier.commit())
        LeverErreurExecution(QStringLiteral("Le fichier « %1 » ne peut pas être écrit : %2")
                                 .arg(fichier.fileName(), fichier.errorString()));
}

void FichierCsv::Ecrire(const QByteArray& octets) {
    if (fichier.write(octets) != octets.size())
        LeverErreurExecution(QStringLiteral("Le fichier « %1 » ne peut pas être écrit : %2")
                                 .arg(fichier.fileName(), fichier.errorString()));
}

QString ChoisirFichierExport(const QString& nomParDefaut) {
    QString nom = nomParDefaut;
    nom.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    // Un "/" du libellé ferait un chemin de dossiers : il devient un tiret dans le nom proposé.
    nom.replace(QLatin1Char('/'), QLatin1Char('-'));
    return ui::ChoisirFichierEnregistrer(QStringLiteral("Export vers Excel (Fichier CSV)"), nom,
                                         QStringLiteral("CSV (*.csv)|*.csv"));
}

bool AccepterEcrasement(const QString& fichier) {
    if (!QFileInfo::exists(fichier)) return true;
    return ui::Boite(QStringLiteral("Le fichier %1 existe déjà ! \n\nSouhaitez-vous l'écraser par "
                                    "le nouveau ?")
                         .arg(fichier),
                     QStringLiteral("Confirmation"), ui::Icone::Question,
                     ui::Boutons::OuiNon) != ui::Reponse::Non;
}

void TerminerExport(const QString& fichier, const QString& phrase, const QString& question) {
    if (!ApplicationAssociee(fichier)) {
        ui::Boite(phrase, QStringLiteral("Export terminé"), ui::Icone::Information);
        return;
    }
    if (ui::Boite(phrase + QStringLiteral("\r\n\r\n") + question, QStringLiteral("Export terminé"),
                  ui::Icone::Question, ui::Boutons::OuiNonAnnuler) == ui::Reponse::Oui)
        ui::OuvrirFichier(fichier);
}
