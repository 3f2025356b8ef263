// What the desktop is asked for where an event is mailed.
#include <QDesktopServices>
#include <QFile>
#include <QTemporaryDir>
#include <QUrlQuery>

#include "shell/ShellFixture.h"

namespace dayward {

namespace {

/// Takes the links that would open a program for mail.
class MailProgram final : public QObject {
    Q_OBJECT

public:
    MailProgram() { QDesktopServices::setUrlHandler(QStringLiteral("mailto"), this, "open"); }
    ~MailProgram() override { QDesktopServices::unsetUrlHandler(QStringLiteral("mailto")); }

    QList<QUrl> opened;

public slots:
    void open(const QUrl& link) { opened.append(link); }
};

}  // namespace

class Mail : public ShellFixture {
protected:
    Mail() : shell_(*environment) {}
    ~Mail() override { qputenv("PATH", path_); }

    /// The mail command writes its arguments, one a line, into a file; without it there is none on the desktop.
    void installCommand() const {
        QFile command(scratch_.filePath(QStringLiteral("xdg-email")));
        ASSERT_TRUE(command.open(QIODevice::WriteOnly));
        command.write(
            "#!/bin/sh\nprintf '%s\\n' \"$@\" >\"${0%/*}/unfinished\" && /bin/mv \"${0%/*}/unfinished\" "
            "\"${0%/*}/arguments\"\n");
        command.close();
        ASSERT_TRUE(command.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }
    [[nodiscard]] QStringList arguments() const {
        QFile written(scratch_.filePath(QStringLiteral("arguments")));
        if (!until([&] { return written.exists(); }) || !written.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(written.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    Result<> compose(const MailDraft& draft) {
        qputenv("PATH", scratch_.path().toUtf8());
        return shell_.shareServices().composeMail(draft);
    }

    bool takesFiles() {
        qputenv("PATH", scratch_.path().toUtf8());
        return shell_.shareServices().mailTakesFiles();
    }

    MailProgram program_;

private:
    const QByteArray path_ = qgetenv("PATH");
    const QTemporaryDir scratch_;
    Shell shell_;
};

TEST_F(Mail, ofAPictureGoesThroughTheDesktopsCommand) {
    installCommand();
    ASSERT_TRUE(compose({.subject = "Ольга & Co", .text = {}, .attachmentPath = "/tmp/a b.png"}));
    EXPECT_EQ(arguments(), (QStringList{"--utf8", "--subject", "Ольга & Co", "--body", "--attach", "/tmp/a b.png"}));
    EXPECT_TRUE(program_.opened.isEmpty()) << "one mail is enough";
}

TEST_F(Mail, ofATextIsALink) {
    installCommand();
    ASSERT_TRUE(compose({.subject = "Ольга & Co", .text = "50% = half?\nyes", .attachmentPath = {}}));
    ASSERT_EQ(program_.opened.size(), 1);
    EXPECT_EQ(program_.opened.front().toEncoded(),
              "mailto:?subject=%D0%9E%D0%BB%D1%8C%D0%B3%D0%B0%20%26%20Co&body=50%25%20%3D%20half%3F%0Ayes");
}

TEST_F(Mail, takesAPictureWhereThereIsTheCommandOnly) {
    EXPECT_FALSE(takesFiles());
    installCommand();
    EXPECT_TRUE(takesFiles());
}

}  // namespace dayward

#include "MailTest.moc"
