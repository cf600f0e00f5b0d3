#include "session/FichierProfil.h"

#include "base/Durable.h"

#include <QFile>
#include <QFileInfo>
#include <QList>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

enum class Genre { Autre, Section, Cle };

struct Ligne {
    QByteArray octets; // la ligne sans sa fin
    QByteArray fin;    // "\n", "\r\n", ou rien pour une dernière ligne sans fin
    Genre genre = Genre::Autre;
    QString nom; // de la section ou de la clé, sans blancs aux bouts
    qsizetype egal = -1;
};

const QByteArray Bom("\xEF\xBB\xBF");

void Classer(Ligne& ligne, bool premiere) {
    QByteArray octets = ligne.octets;
    if (premiere && octets.startsWith(Bom)) octets.remove(0, Bom.size());
    const QString texte = QString::fromUtf8(octets).trimmed();
    if (texte.startsWith(u';')) return;
    if (texte.startsWith(u'[')) {
        const qsizetype fermant = texte.indexOf(u']');
        ligne.genre = Genre::Section;
        ligne.nom = texte.mid(1, fermant < 0 ? -1 : fermant - 1).trimmed();
        return;
    }
    const qsizetype egal = texte.indexOf(u'=');
    if (egal <= 0) return;
    ligne.nom = texte.left(egal).trimmed();
    if (ligne.nom.isEmpty()) return;
    ligne.genre = Genre::Cle;
    ligne.egal = ligne.octets.indexOf('=');
}

QList<Ligne> Analyser(const QByteArray& contenu) {
    QList<Ligne> lignes;
    qsizetype debut = 0;
    while (debut < contenu.size()) {
        Ligne ligne;
        const qsizetype saut = contenu.indexOf('\n', debut);
        const qsizetype fin = saut < 0 ? contenu.size() : saut;
        const bool cr = saut >= 0 && fin > debut && contenu[fin - 1] == '\r';
        ligne.octets = contenu.mid(debut, fin - debut - (cr ? 1 : 0));
        if (saut >= 0) ligne.fin = cr ? QByteArray("\r\n") : QByteArray("\n");
        Classer(ligne, lignes.isEmpty());
        lignes.append(std::move(ligne));
        debut = saut < 0 ? contenu.size() : saut + 1;
    }
    return lignes;
}

QByteArray Assembler(const QList<Ligne>& lignes) {
    QByteArray contenu;
    for (const Ligne& ligne : lignes)
        contenu += ligne.octets + ligne.fin;
    return contenu;
}

bool MemeNom(const QString& a, const QString& b) {
    return QString::compare(a, b, Qt::CaseInsensitive) == 0;
}

struct Position {
    qsizetype cle = -1;           // ligne de la clé
    qsizetype derniereUtile = -1; // fin de la première section de ce nom
};

Position Chercher(const QList<Ligne>& lignes, const QString& section, const QString& cle) {
    Position position;
    bool dedans = false;
    bool premiereFinie = false;
    for (qsizetype i = 0; i < lignes.size(); ++i) {
        const Ligne& ligne = lignes[i];
        if (ligne.genre == Genre::Section) {
            if (dedans) premiereFinie = true;
            dedans = MemeNom(ligne.nom, section);
            if (dedans && !premiereFinie) position.derniereUtile = i;
            continue;
        }
        if (!dedans) continue;
        if (ligne.genre == Genre::Cle && position.cle < 0 && MemeNom(ligne.nom, cle))
            position.cle = i;
        // Les commentaires et lignes vides de fin de section annoncent souvent la suivante.
        const QString texte = QString::fromUtf8(ligne.octets).trimmed();
        if (!premiereFinie && !texte.isEmpty() && !texte.startsWith(u';'))
            position.derniereUtile = i;
    }
    return position;
}

QString Valeur(const Ligne& ligne) {
    QString valeur = QString::fromUtf8(ligne.octets.mid(ligne.egal + 1)).trimmed();
    if (valeur.size() >= 2 && valeur.startsWith(u'"') && valeur.endsWith(u'"'))
        valeur = valeur.mid(1, valeur.size() - 2);
    return valeur;
}

bool SansFinDeLigne(const QString& texte) {
    return !texte.contains(u'\n') && !texte.contains(u'\r') && texte.isValidUtf16();
}

// Une marque d'ordre des octets en tête de fichier serait prise pour celle du fichier.
bool NomInscriptible(const QString& nom) {
    return SansFinDeLigne(nom) && !nom.contains(QChar(0xFEFF));
}

bool Inscriptible(const QString& section, const QString& cle) {
    return NomInscriptible(section) && NomInscriptible(cle) && !section.contains(u']') &&
           !cle.isEmpty() && !cle.contains(u'=') && !cle.startsWith(u';') && !cle.startsWith(u'[');
}

QByteArray FinDeLigne(const QList<Ligne>& lignes) {
    for (const Ligne& ligne : lignes)
        if (!ligne.fin.isEmpty()) return ligne.fin;
    return "\n";
}

Ligne NouvelleLigne(const QString& texte, const QByteArray& fin) {
    Ligne ligne;
    ligne.octets = texte.toUtf8();
    ligne.fin = fin;
    return ligne;
}

// Garde l'orthographe de la clé et les blancs qui suivent le "=".
void RemplacerValeur(Ligne& ligne, const QString& valeur) {
    qsizetype debut = ligne.egal + 1;
    qsizetype i = debut;
    while (i < ligne.octets.size() && (ligne.octets[i] == ' ' || ligne.octets[i] == '\t'))
        ++i;
    if (i < ligne.octets.size()) debut = i;
    ligne.octets = ligne.octets.left(debut) + valeur.toUtf8();
}

// Ajoute la ligne après la ligne d'indice apres, en fermant celle-ci si besoin.
void InsererApres(QList<Ligne>& lignes, qsizetype apres, Ligne ligne) {
    if (apres >= 0 && lignes[apres].fin.isEmpty()) lignes[apres].fin = ligne.fin;
    lignes.insert(apres + 1, std::move(ligne));
}

// Lecture du fichier ; un fichier absent est vide, un fichier illisible est un échec.
bool LireFichier(const QString& chemin, QByteArray& contenu) {
    contenu.clear();
    QFileInfo info(chemin);
    if (!info.exists()) return true;
    QFile fichier(chemin);
    if (info.isDir() || !fichier.open(QIODevice::ReadOnly)) return false;
    contenu = fichier.readAll();
    return fichier.error() == QFileDevice::NoError;
}

bool EcrireTout(int fd, const QByteArray& octets) {
    const char* p = octets.constData();
    qsizetype reste = octets.size();
    while (reste > 0) {
        const ssize_t n = ::write(fd, p, static_cast<size_t>(reste));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        p += n;
        reste -= n;
    }
    return true;
}

// Fichier temporaire à côté, fsync, renommage par-dessus l'ancien, fsync du dossier :
// une coupure laisse l'ancien contenu ou le nouveau, jamais un mélange.
bool RemplacerDurablement(const QString& chemin, const QByteArray& octets) {
    const QByteArray nom = QFile::encodeName(chemin);
    QByteArray temporaire = nom + ".XXXXXX";
    const int fd = ::mkostemp(temporaire.data(), O_CLOEXEC);
    if (fd < 0) return false;
    struct stat ancien {};
    const mode_t mode = ::stat(nom.constData(), &ancien) == 0 ? (ancien.st_mode & 07777) : 0644;
    bool ok = ::fchmod(fd, mode) == 0 && EcrireTout(fd, octets) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (!ok || ::rename(temporaire.constData(), nom.constData()) != 0) {
        ::unlink(temporaire.constData());
        return false;
    }
    return SynchroniserDossier(QFileInfo(chemin).absolutePath());
}

using Transformation = std::function<std::optional<QByteArray>(const QByteArray&)>;

bool ModifierFichier(const QString& chemin, const Transformation& transformation) {
    // Un lien symbolique est suivi : c'est le fichier visé qu'on remplace.
    const QFileInfo info(chemin);
    const QString cible = info.isSymLink() ? info.symLinkTarget() : chemin;
    QByteArray contenu;
    if (!LireFichier(cible, contenu)) return false;
    const std::optional<QByteArray> nouveau = transformation(contenu);
    if (!nouveau) return false;
    if (FichierProfil::AvantEcriture) FichierProfil::AvantEcriture();
    return RemplacerDurablement(cible, *nouveau);
}

} // namespace

std::function<void()> FichierProfil::AvantEcriture;

FichierProfil::FichierProfil(QString chemin) : chemin_(std::move(chemin)) {}

QString FichierProfil::Lire(const QString& section, const QString& cle,
                            const QString& defaut) const {
    QByteArray contenu;
    if (!LireFichier(chemin_, contenu)) return defaut;
    return LireDansTexte(contenu, section, cle, defaut);
}

bool FichierProfil::Ecrire(const QString& section, const QString& cle, const QString& valeur) {
    return ModifierFichier(chemin_, [&](const QByteArray& contenu) {
        return EcrireDansTexte(contenu, section, cle, valeur);
    });
}

bool FichierProfil::EcrireCles(const QString& section, const QList<QPair<QString, QString>>& cles) {
    return ModifierFichier(chemin_, [&](const QByteArray& contenu) {
        std::optional<QByteArray> texte = contenu;
        for (const auto& [cle, valeur] : cles)
            if (texte) texte = EcrireDansTexte(*texte, section, cle, valeur);
        return texte;
    });
}

bool FichierProfil::Effacer(const QString& section, const QString& cle) {
    return ModifierFichier(chemin_, [&](const QByteArray& contenu) {
        return EffacerDansTexte(contenu, section, cle);
    });
}

QString FichierProfil::LireDansTexte(const QByteArray& contenu, const QString& section,
                                     const QString& cle, const QString& defaut) {
    const QList<Ligne> lignes = Analyser(contenu);
    const Position position = Chercher(lignes, section.trimmed(), cle.trimmed());
    return position.cle < 0 ? defaut : Valeur(lignes[position.cle]);
}

std::optional<QByteArray> FichierProfil::EcrireDansTexte(const QByteArray& contenu,
                                                         const QString& section, const QString& cle,
                                                         const QString& valeur) {
    const QString nomSection = section.trimmed();
    const QString nomCle = cle.trimmed();
    if (!Inscriptible(nomSection, nomCle) || !SansFinDeLigne(valeur)) return std::nullopt;
    QList<Ligne> lignes = Analyser(contenu);
    const QByteArray fin = FinDeLigne(lignes);
    const Position position = Chercher(lignes, nomSection, nomCle);
    const Ligne ligneCle = NouvelleLigne(nomCle + u'=' + valeur, fin);
    if (position.cle >= 0) {
        RemplacerValeur(lignes[position.cle], valeur);
    } else if (position.derniereUtile >= 0) {
        InsererApres(lignes, position.derniereUtile, ligneCle);
    } else {
        // Section nouvelle en fin de fichier, séparée de ce qui précède par une ligne vide.
        const qsizetype derniere = lignes.size() - 1;
        if (derniere >= 0 && !QString::fromUtf8(lignes[derniere].octets).trimmed().isEmpty())
            InsererApres(lignes, derniere, NouvelleLigne({}, fin));
        InsererApres(lignes, lignes.size() - 1, NouvelleLigne(u'[' + nomSection + u']', fin));
        InsererApres(lignes, lignes.size() - 1, ligneCle);
    }
    return Assembler(lignes);
}

std::optional<QByteArray> FichierProfil::EffacerDansTexte(const QByteArray& contenu,
                                                          const QString& section,
                                                          const QString& cle) {
    QList<Ligne> lignes = Analyser(contenu);
    const Position position = Chercher(lignes, section.trimmed(), cle.trimmed());
    if (position.cle >= 0) lignes.removeAt(position.cle);
    return Assembler(lignes);
}
