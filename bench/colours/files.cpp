#include "files.h"

#include <QDirIterator>

namespace {

constexpr qint64 g_nMinSize = 1500;
constexpr qint64 g_nMaxSize = 120000;

// Lines of thousands of characters were made by a program, and nobody reads them.
bool isReadable(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (line.size() > 2000 || line.contains('\0'))
            return false;
    }
    return true;
}

} // namespace

const QList<SFileKind> &fileKinds()
{
    static const QList<SFileKind> s_lst {
        {"AsciiDoc", "a.adoc", {"src-weechat"}, {"*.adoc"}},
        {"C", "a.c", {"src-git", "src-bash"}, {"*.c"}},
        {"C++", "a.cpp", {"src-weechat", "/usr/include/x86_64-linux-gnu/qt5"}, {"*.cpp", "*.h"}},
        {"CMake", "a.cmake", {"cmake-data"}, {"*.cmake"}},
        {"CSS",
         "a.css",
         {"phpmyadmin", "wordpress", "roundcube-core", "dokuwiki", "asciidoctor",
          "tomcat10-examples"},
         {"*.css"}},
        {"Diff", "a.diff", {"."}, {"*.patch", "*.diff"}},
        {"Go", "a.go", {"golang-golang-x-net-dev"}, {"*.go"}},
        {"Haskell", "a.hs", {"src-xmonad-contrib", "src-haskell-lens"}, {"*.hs"}},
        {"HTML", "a.html", {"."}, {"*.html"}},
        {"Java", "a.java", {"src-commons-io", "tomcat10-examples"}, {"*.java"}},
        {"JavaScript",
         "a.js",
         {"npm", "phpmyadmin", "wordpress", "roundcube-core", "node-less"},
         {"*.js"}},
        {"JSON", "a.json", {"."}, {"*.json"}},
        {"Kotlin", "a.kt", {"src-kotlinx-coroutines"}, {"*.kt"}},
        {"Lua", "a.lua", {"awesome", "nmap-common", "lua-penlight"}, {"*.lua"}},
        {"Makefile",
         "Makefile",
         {"linux-headers", "src-git", "src-bash", "cdbs"},
         {"Makefile", "*.mk", "Makefile.*"}},
        {"Markdown", "a.md", {"."}, {"*.md"}},
        {"Perl", "a.pl", {"perl-modules", "libmojolicious-perl", "src-git"}, {"*.pm", "*.pl"}},
        {"PHP", "a.php", {"wordpress", "phpmyadmin", "dokuwiki", "roundcube-core"}, {"*.php"}},
        {"Python", "a.py", {"ansible-core", "/usr/lib/python3", "src-python-django"}, {"*.py"}},
        {"Ruby", "a.rb", {"libruby", "asciidoctor"}, {"*.rb"}},
        {"Rust", "a.rs", {"."}, {"*.rs"}},
        {"SCSS", "a.scss", {"."}, {"*.scss"}},
        {"Shell",
         "a.sh",
         {"bash-completion", "initramfs-tools", "src-git", "dkms", "src-bash"},
         {"*.sh", "*.bash"}},
        {"SQL",
         "a.sql",
         {"postgresql", "roundcube-core", "zabbix-server-pgsql", "phpmyadmin"},
         {"*.sql"}},
        {"TOML", "Cargo.toml", {"."}, {"Cargo.toml"}},
        {"TypeScript", "a.ts", {"src-node-rxjs", "src-node-immutable", "."}, {"*.ts"}},
        {"XML", "a.xml", {".", "/usr/share/mime"}, {"*.xml"}},
        {"YAML", "a.yml", {"."}, {"*.yml", "*.yaml"}},
    };
    return s_lst;
}

namespace {

// Leaves out those that are too many, evenly spread.
QStringList spread(const QStringList &lstAll, int nCount)
{
    QStringList lst;
    for (int n = 0; n < lstAll.size() && lst.size() < nCount; ++n) {
        const int nLeft = nCount - int(lst.size());
        n += std::max(1, int(lstAll.size() - n) / nLeft) - 1;
        if (n < lstAll.size() && isReadable(lstAll.at(n)))
            lst.append(lstAll.at(n));
    }
    return lst;
}

} // namespace

QStringList filesOf(const SFileKind &kind, const QString &strRoot, int nCount, int nSet)
{
    QStringList lstAll;
    for (const QString &strFolder : kind.lstFolders) {
        QDirIterator it(QDir(strRoot).absoluteFilePath(strFolder), kind.lstPatterns, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString strPath = it.next();
            const qint64 nSize = it.fileInfo().size();
            if (nSize >= g_nMinSize && nSize <= g_nMaxSize && !strPath.contains(".min.")
                && !strPath.contains("/unicore/") && !strPath.contains("/Collate/"))
                lstAll.append(QDir::cleanPath(strPath));
        }
    }
    lstAll.removeDuplicates();
    lstAll.sort();
    QStringList lst = spread(lstAll, nCount);
    for (int n = 0; n < nSet; ++n) {
        for (const QString &strPath : qAsConst(lst))
            lstAll.removeOne(strPath);
        lst = spread(lstAll, nCount);
    }
    return lst;
}

QStringList readLines(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    QStringList lst = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (QString &strLine : lst)
        if (strLine.endsWith(QLatin1Char('\r')))
            strLine.chop(1);
    return lst;
}
