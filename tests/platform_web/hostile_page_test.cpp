// Whatever is written into the name of an item: no script runs, and nothing leaves the folder.
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>
#include <QWidget>

#include "platform_web/web_fixture.h"

namespace tavernook {
namespace {

// "@" is the address of a listening server, "~" a script that leaves its mark.
constexpr const char* vectors[] = {
    "<script>~</script>",
    "<script src='@/s.js'></script>",
    "<script type=module>import '@/m.js'; ~</script>",
    "<script>fetch('@/f'); new Image().src='@/i'; new WebSocket('ws'+'@'.slice(4)); "
    "navigator.sendBeacon('@/b');</script>",
    "<script>const c=new RTCPeerConnection({iceServers:[{urls:'stun:127.0.0.1:#'}]});"
    "c.createDataChannel('x');c.createOffer().then(o=>c.setLocalDescription(o));</script>",
    "<img src=x onerror=\"~\">",
    "<img src='@/img.png'>",
    "<img src='//127.0.0.1:#/img.png'>",
    "<img srcset='@/a.png 1x, @/b.png 2x'>",
    "<picture><source srcset='@/p.png'><img></picture>",
    "<img src='file:///etc/passwd'><iframe src='file:///etc/passwd'></iframe>",
    "<svg onload=\"~\"></svg>",
    "<svg><script>~</script><image href='@/v.png'/><use href='@/u.svg#a'/></svg>",
    "<svg><animate onbegin=\"~\" attributeName=x dur=1s></svg>",
    "<img src='data:image/svg+xml,<svg xmlns=\"http://www.w3.org/2000/svg\" onload=\"~\"><image "
    "href=\"@/d.png\"/></svg>'>",
    "<math><a xlink:href='javascript:~'>x</a></math>",
    "<iframe src='@/frame'></iframe>",
    "<iframe src='javascript:parent.document.title=1'></iframe>",
    "<iframe srcdoc='<script>parent.document.title=2</script><img src=@/srcdoc>'></iframe>",
    "<iframe src='data:text/html,<script src=@/data.js></script>'></iframe>",
    "<object data='@/object'></object><object data='data:text/html,<img src=@/o.png>'></object>",
    "<embed src='@/embed'><applet code='@/applet'></applet>",
    "<meta http-equiv=refresh content='0;url=@/refresh'>",
    "<meta http-equiv=refresh content='0;url=javascript:document.title=3'>",
    "<meta http-equiv=refresh content='0'>",
    "<meta http-equiv=Content-Security-Policy content=\"default-src * 'unsafe-inline'\">",
    "<meta http-equiv='Set-Cookie' content='a=b'>",
    "<form action='@/form'><input autofocus name=a value=b onfocus=\"~\"><button>x</button></form>",
    "<form action='@/form2'><input type=image src='@/button.png'></form>",
    "<button formaction='javascript:~' autofocus>x</button>",
    "<style>@import '@/import.css'; @import url(//127.0.0.1:#/i2.css); body { background: "
    "url(@/bg.png) }"
    " @font-face { font-family: f; src: url(@/font.woff) } p { font-family: f; cursor: "
    "url(@/c.cur), auto;"
    " list-style: url(@/l.png); content: url(@/content.png) }</style><p>x</p>",
    "<div style=\"background: url('@/style.png')\">x</div>",
    "<table background='@/table.png'><tr><td background='@/cell.png'>x</table>",
    "<body background='@/body.png' onload=\"~\" onpageshow=\"~\">",
    "<link rel=stylesheet href='@/link.css'><link rel=stylesheet href='data:text/css,@import "
    "url(@/dl.css)'>",
    "<link rel=preload as=image href='@/pre.png'><link rel=prefetch href='@/prefetch'>"
    "<link rel=prerender href='@/prerender'><link rel=modulepreload href='@/m.js'>",
    "<link rel=preconnect href='@'><link rel=dns-prefetch href='@'><link rel=icon "
    "href='@/icon.png'>"
    "<link rel=manifest href='@/manifest'><link rel=import href='@/import'>",
    "<base href='@/'><img src='based.png'>",
    "<video src='@/v.mp4' poster='@/poster.png' autoplay onerror=\"~\"></video>",
    "<audio autoplay><source src='@/a.mp3' onerror=\"~\"></audio>",
    "<video><track default src='@/t.vtt'></video>",
    "<details open ontoggle=\"~\">x</details><marquee onstart=\"~\">x</marquee>",
    "<noscript><img src='@/noscript.png'><meta http-equiv=refresh content='0;url=@/n'></noscript>",
    "<template><img src='@/template.png'></template><portal src='@/portal'></portal>",
    "<frameset><frame src='@/fs'></frameset>",
    "<p contenteditable autofocus onfocus=\"~\" onbeforeinput=\"~\">x</p>",
    "<a href='@/click' ping='@/ping' target=_blank style='position:fixed;inset:0;z-index:9'>x</a>",
    "+ADw-script+AD4-document.title=4+ADw-/script+AD4-",
    "\x1b(J<script>~</script>\x1b$B",
    "--><script>~</script><!--",
    "]]><script>~</script>",
    "</title></textarea></style><script>~</script>",
};

class HostilePage : public WebTest {
  protected:
    HostilePage() {
        server.listen(QHostAddress::LocalHost);
        stun.bind(QHostAddress::LocalHost, server.serverPort());
        view->widget().show();
    }

    std::string aimed(std::string text) const {
        const std::string port = std::to_string(server.serverPort());
        replace(text, "@", "http://127.0.0.1:" + port);
        replace(text, "#", port);
        replace(text, "~",
                "document.documentElement.setAttribute('ra'+'n', 1);document.title='ran'");
        return text;
    }
    static void replace(std::string& text, const std::string& from, const std::string& to) {
        for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
            text.replace(at, from.size(), to);
        }
    }

    // Every key and click that a page could wait for.
    void use_the_page() {
        QWidget* page = &drawn_page();
        QTest::mouseMove(page, QPoint(40, 40));
        QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(30, 30));
        QTest::mouseClick(page, Qt::MiddleButton, {}, QPoint(30, 30));
        for (const int key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Space, Qt::Key_A}) {
            QTest::keyClick(page, static_cast<Qt::Key>(key));
        }
    }

    void expect_harmless(const std::string& bytes) {
        ASSERT_TRUE(show(bytes));
        const std::string before = read().value();
        EXPECT_EQ(before.find("<html ran="), std::string::npos);
        use_the_page();
        view->set_design_mode_on();
        const std::string page = read().value();
        EXPECT_EQ(page.find(" ran=\"1\""), std::string::npos) << page;
        EXPECT_EQ(occurrences(page, "<title>before</title>"),
                  occurrences(before, "<title>before</title>"));
        // The same page is still the one on show, and it answers.
        EXPECT_NE(page.find("end of the page"), std::string::npos);
        EXPECT_FALSE(server.hasPendingConnections());
        EXPECT_FALSE(stun.hasPendingDatagrams());
    }

    // That the server would have heard, had anything been sent before.
    void expect_that_only_we_are_heard() {
        QTcpSocket own;
        own.connectToHost(QHostAddress::LocalHost, server.serverPort());
        ASSERT_TRUE(comes_true([&] { return server.hasPendingConnections(); }));
        EXPECT_EQ(server.nextPendingConnection()->peerPort(), own.localPort());
        EXPECT_FALSE(server.hasPendingConnections());
        QUdpSocket caller;
        caller.writeDatagram("own", QHostAddress::LocalHost, server.serverPort());
        ASSERT_TRUE(comes_true([&] { return stun.hasPendingDatagrams(); }));
        QByteArray heard(16, ' ');
        heard.truncate(stun.readDatagram(heard.data(), heard.size()));
        EXPECT_EQ(heard, "own");
        EXPECT_FALSE(stun.hasPendingDatagrams());
    }

    QTcpServer server;
    QUdpSocket stun;
};

// A few at a time, so that none hides behind one that eats the rest of the page.
TEST_F(HostilePage, AttacksInTheCellsOfAList) {
    constexpr std::size_t few = 7;
    for (std::size_t first = 0; first < std::size(vectors); first += few) {
        std::string cells;
        for (std::size_t at = first; at < std::min(first + few, std::size(vectors)); ++at) {
            cells += "<tr><td>" + aimed(vectors[at]) + "</td></tr>";
        }
        SCOPED_TRACE(cells);
        expect_harmless(page_around("<p>end of the page</p><table>" + cells + "</table>"));
    }
    expect_that_only_we_are_heard();
}

TEST_F(HostilePage, AllAtOnceInsideAndInFrontOfThePage) {
    std::string all;
    for (const char* vector : vectors) all += aimed(vector);
    expect_harmless(page_around("<p>end of the page</p>" + all));
    expect_harmless(all + page_around("<p>end of the page</p>"));
    expect_harmless("<!DOCTYPE html" + aimed(" PUBLIC '@/dtd' '@/dtd2'>") + all +
                    page_around("<p>end of the page</p>"));
    expect_that_only_we_are_heard();
}

TEST_F(HostilePage, FilesThatClaimAnotherEncoding) {
    const std::string plain = aimed("<script>~</script><img src='@/e.png'>end of the page");
    std::string wide = "\xff\xfe";
    for (const char letter : plain) wide += std::string{letter, '\0'};
    ASSERT_TRUE(show(wide));
    EXPECT_EQ(read().value().find(" ran=\"1\""), std::string::npos);
    for (const char* front :
         {"\xef\xbb\xbf", "+/v8-", "<meta charset=utf-7>", "<meta charset=iso-2022-jp>",
          "<meta charset=utf-16>", "<?xml version='1.0' encoding='utf-16'?>"}) {
        SCOPED_TRACE(front);
        expect_harmless(front + plain);
    }
    expect_that_only_we_are_heard();
}

TEST_F(HostilePage, WhatIsReadOfItIsHarmlessAgain) {
    std::string all = "<p>end of the page</p>";
    for (const char* vector : vectors) all += aimed(vector);
    ASSERT_TRUE(show(page_around(all)));
    const std::string saved = read().value();
    const std::size_t policy = saved.find("Content-Security-Policy");
    ASSERT_NE(policy, std::string::npos);
    EXPECT_LT(policy, saved.find("<script"));
    EXPECT_LT(policy, saved.find("http://"));
    expect_harmless(saved);
    expect_that_only_we_are_heard();
}

TEST_F(HostilePage, ValuesDoNotBecomeScripts) {
    const std::string name =
        "\");document.documentElement.setAttribute('ran','1');(\"\xe2\x80\xa8.png";
    write_whole_file(folder.path(name), small_png());
    ASSERT_TRUE(show(page_around("end of the page")));
    view->set_design_mode_on();
    EXPECT_TRUE(view->insert_image(folder.path(name)));
    EXPECT_EQ(read().value().find(" ran=\"1\""), std::string::npos);
}

}  // namespace
}  // namespace tavernook
