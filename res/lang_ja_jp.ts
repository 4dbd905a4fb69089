<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>CDlgFind</name>
    <message>
        <source>Find</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Find what:</source>
        <translation>検索する文字列:</translation>
    </message>
    <message>
        <source>Find what</source>
        <translation>検索する文字列</translation>
    </message>
    <message>
        <source>Match whole word only</source>
        <translation>単語単位で検索する</translation>
    </message>
    <message>
        <source>Match case</source>
        <translation>大文字と小文字を区別する</translation>
    </message>
    <message>
        <source>Use regular expression</source>
        <translation>正規表現を使う</translation>
    </message>
    <message>
        <source>Search up</source>
        <translation>上方向に検索する</translation>
    </message>
    <message>
        <source>Wrap search</source>
        <translation>循環して検索する</translation>
    </message>
    <message>
        <source>Auto close after click &quot;Find Next&quot;</source>
        <translation>「次を検索」を押したら閉じる</translation>
    </message>
    <message>
        <source>Thransparent</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Opacity in percent while the window is inactive</source>
        <translation>ウィンドウが非アクティブのときの不透明度 (%)</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置換</translation>
    </message>
    <message>
        <source>Replace with:</source>
        <translation>置換後の文字列:</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>置換後の文字列</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>次を検索</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>すべて置換</translation>
    </message>
    <message>
        <source>Find: the top has been reached.</source>
        <translation>検索: 先頭に達しました。</translation>
    </message>
    <message>
        <source>Find: the end has been reached.</source>
        <translation>検索: 末尾に達しました。</translation>
    </message>
    <message>
        <source>Find: the string cannot be found.</source>
        <translation>検索: 文字列が見つかりません。</translation>
    </message>
    <message>
        <source>Replace All: %1 item has been replaced.</source>
        <translation>すべて置換: %1 件を置換しました。</translation>
    </message>
    <message>
        <source>Replace All: %1 items have been replaced.</source>
        <translation>すべて置換: %1 件を置換しました。</translation>
    </message>
    <message>
        <source>Find and replace</source>
        <translation>検索と置換</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%2 件中 %1 件目</translation>
    </message>
</context>
<context>
    <name>CDlgGo</name>
    <message>
        <source>Go to Line</source>
        <translation>指定行へ移動</translation>
    </message>
    <message>
        <source>Line:</source>
        <translation>行番号:</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>行番号</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>移動</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>CDocument</name>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>ファイルを読み取れません: %1</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>上書き</translation>
    </message>
    <message>
        <source>%1 is no longer there. Saving writes it again.</source>
        <translation>%1 はもうありません。保存すると再び書き込まれます。</translation>
    </message>
    <message>
        <source>Another tab has saved %1.</source>
        <translation>別のタブが %1 を保存しました。</translation>
    </message>
    <message>
        <source>Another program has changed %1.</source>
        <translation>別のプログラムが %1 を変更しました。</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Not saved: another tab has saved %1.</source>
        <translation>保存していません: 別のタブが %1 を保存しました。</translation>
    </message>
    <message>
        <source>Not saved: another program has changed %1.</source>
        <translation>保存していません: 別のプログラムが %1 を変更しました。</translation>
    </message>
    <message>
        <source>Not saved: not all of %1 can be shown as text, and saving loses the rest.</source>
        <translation>保存していません: %1 のすべてをテキストとして表示できないため、保存すると残りが失われます。</translation>
    </message>
    <message>
        <source>Not saved: the encoding of %1 is a guess (%2). Saving writes what the window shows, as UTF-8; if that is wrong, choose another Text Codec.</source>
        <translation>保存していません: %1 のエンコーディングは推測です (%2)。保存するとウィンドウの表示内容が UTF-8 で書き込まれます。表示が誤っている場合は別の文字コードを選んでください。</translation>
    </message>
    <message>
        <source>Save all the same</source>
        <translation>それでも保存</translation>
    </message>
</context>
<context>
    <name>CDraftKeeper</name>
    <message>
        <source>The draft could not be written.</source>
        <translation>下書きを書き込めませんでした。</translation>
    </message>
</context>
<context>
    <name>CEditWebView</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Open file position</source>
        <translation>ファイルの場所を開く</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>Cannot open file(%1).</source>
        <translation>ファイル(%1)を開けません。</translation>
    </message>
    <message>
        <source>Page editor</source>
        <translation>ページ エディター</translation>
    </message>
    <message>
        <source>The frames of this page are not edited.</source>
        <translation>このページのフレームは編集できません。</translation>
    </message>
    <message>
        <source>%1 pictures are not shown: they lie outside the page&apos;s folders or on the network</source>
        <translation>%1 個の画像は表示されません: ページのフォルダーの外またはネットワーク上にあります</translation>
    </message>
    <message>
        <source>1 picture is not shown: it lies outside the page&apos;s folders</source>
        <translation>1 個の画像は表示されません: ページのフォルダーの外にあります</translation>
    </message>
    <message>
        <source>%1 pictures are not shown: they lie outside the page&apos;s folders</source>
        <translation>%1 個の画像は表示されません: ページのフォルダーの外にあります</translation>
    </message>
    <message>
        <source>1 picture is not shown: it lies on the network</source>
        <translation>1 個の画像は表示されません: ネットワーク上にあります</translation>
    </message>
    <message>
        <source>%1 pictures are not shown: they lie on the network</source>
        <translation>%1 個の画像は表示されません: ネットワーク上にあります</translation>
    </message>
    <message>
        <source>Not shown: the picture lies on the network</source>
        <translation>表示されません: 画像はネットワーク上にあります</translation>
    </message>
    <message>
        <source>Not shown: the picture lies outside the page&apos;s folders</source>
        <translation>表示されません: 画像はページのフォルダーの外にあります</translation>
    </message>
</context>
<context>
    <name>CFileActions</name>
    <message>
        <source>This cannot be a name: %1</source>
        <translation>この名前は使えません: %1</translation>
    </message>
    <message>
        <source>%1 was not renamed: %2</source>
        <translation>%1 の名前は変更されませんでした: %2</translation>
    </message>
    <message>
        <source>%1 is now %2. Ctrl+Z takes it back.</source>
        <translation>%1 の名前は %2 になりました。Ctrl+Z で元に戻せます。</translation>
    </message>
    <message>
        <source>%1 cannot be moved to the trash.</source>
        <translation>%1 をごみ箱に移動できません。</translation>
    </message>
    <message>
        <source>%1 is in the trash. Ctrl+Z takes it back.</source>
        <translation>%1 をごみ箱に移動しました。Ctrl+Z で元に戻せます。</translation>
    </message>
    <message>
        <source>%1 entries are in the trash. Ctrl+Z takes them back.</source>
        <translation>%1 個の項目をごみ箱に移動しました。Ctrl+Z で元に戻せます。</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新しいフォルダー</translation>
    </message>
    <message>
        <source>A folder cannot be made here.</source>
        <translation>ここにはフォルダーを作成できません。</translation>
    </message>
    <message>
        <source>There is nothing to take back.</source>
        <translation>元に戻す操作はありません。</translation>
    </message>
    <message>
        <source>%1 cannot be taken back: %2</source>
        <translation>%1 を元に戻せません: %2</translation>
    </message>
    <message>
        <source>Taken back.</source>
        <translation>元に戻しました。</translation>
    </message>
    <message>
        <source>The folder is not empty.</source>
        <translation>フォルダーは空ではありません。</translation>
    </message>
    <message>
        <source>The trash does not tell where it is.</source>
        <translation>ごみ箱の中の場所がわかりません。</translation>
    </message>
</context>
<context>
    <name>CFileReplacement</name>
    <message>
        <source>The disk did not keep what was written: %1</source>
        <translation>書き込んだ内容がディスクに保存されませんでした: %1</translation>
    </message>
    <message>
        <source>The folder may not have kept what was written: %1</source>
        <translation>書き込んだ内容がフォルダーに保存されていない可能性があります: %1</translation>
    </message>
</context>
<context>
    <name>CFileReplacer</name>
    <message>
        <source>It has changed since the search.</source>
        <translation>検索後に変更されました。</translation>
    </message>
    <message>
        <source>It is not UTF-8: saving it from the editor would convert it.</source>
        <translation>UTF-8 ではありません。エディターから保存すると変換されます。</translation>
    </message>
</context>
<context>
    <name>CFileSystemModel</name>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Ext. Name</source>
        <translation>拡張子</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>サイズ</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>更新日時</translation>
    </message>
</context>
<context>
    <name>CFindDock</name>
    <message>
        <source>Find in Files</source>
        <translation>ファイル内を検索</translation>
    </message>
    <message>
        <source>It is open with unsaved changes.</source>
        <translation>未保存の変更があるまま開かれています。</translation>
    </message>
    <message>
        <source>The text has changed since the search.</source>
        <translation>検索の後でテキストが変更されました。</translation>
    </message>
</context>
<context>
    <name>CHighlightEdit</name>
    <message>
        <source>Text editor</source>
        <translation>テキスト エディター</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Toggle Comment</source>
        <translation>コメントの切り替え</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Open file position</source>
        <translation>ファイルの場所を開く</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>row: %1, col: %2, sel: %3</source>
        <translation>行: %1, 列: %2, 選択: %3</translation>
    </message>
    <message>
        <source>Fail to open file</source>
        <translation>ファイルを開けませんでした</translation>
    </message>
    <message>
        <source>Fail to open file(%1).</source>
        <translation>ファイル(%1)を開けませんでした。</translation>
    </message>
    <message>
        <source>Cannot open file(%1).</source>
        <translation>ファイル(%1)を開けません。</translation>
    </message>
    <message>
        <source>Line %1, Column %2: %3</source>
        <translation>%1 行 %2 列: %3</translation>
    </message>
    <message>
        <source>Fail to verify valid</source>
        <translation>検証エラー</translation>
    </message>
    <message>
        <source>There is no bracket beside the cursor.</source>
        <translation>カーソルの隣に括弧がありません。</translation>
    </message>
    <message>
        <source>This bracket has no partner.</source>
        <translation>この括弧に対応する括弧がありません。</translation>
    </message>
    <message>
        <source>There is no line above.</source>
        <translation>上に行がありません。</translation>
    </message>
    <message>
        <source>There is no line below.</source>
        <translation>下に行がありません。</translation>
    </message>
    <message>
        <source>No word is selected.</source>
        <translation>単語が選択されていません。</translation>
    </message>
    <message>
        <source>Selected occurrences: %1</source>
        <translation>選択した出現箇所: %1</translation>
    </message>
    <message>
        <source>There is no line to delete.</source>
        <translation>削除する行がありません。</translation>
    </message>
    <message>
        <source>There are no lower-case letters here.</source>
        <translation>ここに小文字はありません。</translation>
    </message>
    <message>
        <source>There are no upper-case letters here.</source>
        <translation>ここに大文字はありません。</translation>
    </message>
    <message>
        <source>The lines are in order already.</source>
        <translation>行はすでに順に並んでいます。</translation>
    </message>
    <message>
        <source>No other word begins like this.</source>
        <translation>このように始まる単語はほかにありません。</translation>
    </message>
    <message>
        <source>The block ends here.</source>
        <translation>ブロックはここまでです。</translation>
    </message>
    <message>
        <source>There is no line %1; the last line is %2.</source>
        <translation>%1 行目はありません。最後の行は %2 行目です。</translation>
    </message>
    <message>
        <source>Line %1, Column %2</source>
        <translation>%1 行、%2 列</translation>
    </message>
</context>
<context>
    <name>CHtmlToolBar</name>
    <message>
        <source>Black</source>
        <translation>黒</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>灰色</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>オレンジ</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>黄</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>青</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>紫</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>フォント</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>フォント サイズ</translation>
    </message>
    <message>
        <source>Text Color</source>
        <translation>文字の色</translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation>背景色</translation>
    </message>
    <message>
        <source>More Colors...</source>
        <translation>その他の色...</translation>
    </message>
</context>
<context>
    <name>CImageDocument</name>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>ファイルを読み取れません: %1</translation>
    </message>
</context>
<context>
    <name>CImageWidget</name>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
</context>
<context>
    <name>CInPlaceWriter</name>
    <message>
        <source>It is no ordinary file.</source>
        <translation>通常のファイルではありません。</translation>
    </message>
    <message>
        <source>Nobody reads at the other end.</source>
        <translation>相手側で読み取るプログラムがありません。</translation>
    </message>
    <message>
        <source>Its old text cannot be kept meanwhile: %1</source>
        <translation>保存中に元の内容を控えておくことができません: %1</translation>
    </message>
    <message>
        <source>The old text is kept and will be offered at the next start.</source>
        <translation>元の内容は控えてあり、次回の起動時に復元できます。</translation>
    </message>
</context>
<context>
    <name>CNoticeBar</name>
    <message>
        <source>Notice</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>Close this notice</source>
        <translation>このお知らせを閉じる</translation>
    </message>
</context>
<context>
    <name>CPageDocument</name>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>ファイルを読み取れません: %1</translation>
    </message>
</context>
<context>
    <name>CPastTabs</name>
    <message>
        <source>No closed tab is left to open again.</source>
        <translation>もう一度開ける閉じたタブはありません。</translation>
    </message>
    <message>
        <source>No longer there: %1</source>
        <translation>存在しなくなりました: %1</translation>
    </message>
</context>
<context>
    <name>CPreviewWidget</name>
    <message>
        <source>Open position of file</source>
        <translation>ファイルの場所を開く</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Trying out whether this file can be shown...</source>
        <translation>このファイルを表示できるか試しています...</translation>
    </message>
    <message>
        <source>Show the page anyway</source>
        <translation>それでもページを表示</translation>
    </message>
    <message>
        <source>Show the drawing anyway</source>
        <translation>それでも図面を表示</translation>
    </message>
    <message>
        <source>This file is not drawn here: that takes too long.</source>
        <translation>このファイルはここでは描画されません：時間がかかりすぎます。</translation>
    </message>
    <message>
        <source>This file is not drawn here: that takes too much memory.</source>
        <translation>このファイルはここでは描画されません：メモリを使いすぎます。</translation>
    </message>
    <message>
        <source>This file is not drawn here: that makes a program fail.</source>
        <translation>このファイルはここでは描画されません：プログラムが異常終了します。</translation>
    </message>
</context>
<context>
    <name>CReadTexts</name>
    <message>
        <source>It is no ordinary file.</source>
        <translation>通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>ファイルが大きすぎます。</translation>
    </message>
    <message>
        <source>There is not enough memory for the file.</source>
        <translation>このファイルに必要なメモリが足りません。</translation>
    </message>
    <message>
        <source>Another program keeps writing to the file.</source>
        <translation>別のプログラムがこのファイルに書き込み続けています。</translation>
    </message>
    <message>
        <source>Reading was stopped.</source>
        <translation>読み込みを中止しました。</translation>
    </message>
</context>
<context>
    <name>CRecentMenu</name>
    <message>
        <source>(empty)</source>
        <translation>(空)</translation>
    </message>
</context>
<context>
    <name>CRecovery</name>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 とほか %2 件</translation>
    </message>
    <message>
        <source>Left unsaved when the program last ended: %1</source>
        <translation>前回の終了時に保存されなかったもの: %1</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>破棄</translation>
    </message>
    <message>
        <source>A save of %1 was cut off when the program last ended: the file may hold parts of both versions.</source>
        <translation>前回の終了時に %1 の保存が中断されました。ファイルに新旧両方の内容が混ざっている可能性があります。</translation>
    </message>
    <message>
        <source>Put the old version back</source>
        <translation>古い版に戻す</translation>
    </message>
    <message>
        <source>Leave the file as it is</source>
        <translation>そのままにする</translation>
    </message>
    <message>
        <source>%1 was closed, and its file is no longer there.</source>
        <translation>%1 は閉じられ、そのファイルはもうありません。</translation>
    </message>
    <message>
        <source>%1 was closed with unsaved changes.</source>
        <translation>%1 は未保存の変更があるまま閉じられました。</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Unsaved changes of %1 were replaced.</source>
        <translation>%1 の未保存の変更が置き換えられました。</translation>
    </message>
    <message>
        <source>The draft of %1 could not be read.</source>
        <translation>%1 の下書きを読み取れませんでした。</translation>
    </message>
</context>
<context>
    <name>CStartPanel</name>
    <message>
        <source>Start</source>
        <translation>スタート</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>or drop files here</source>
        <translation>またはここにファイルをドロップ</translation>
    </message>
    <message>
        <source>Reopen what was open last time</source>
        <translation>前回開いていたファイルをもう一度開く</translation>
    </message>
    <message>
        <source>Recent files</source>
        <translation>最近使ったファイル</translation>
    </message>
</context>
<context>
    <name>CStatusLabels</name>
    <message>
        <source>Col, Row and Selected</source>
        <translation>列、行、選択文字数</translation>
    </message>
    <message>
        <source>Program Language</source>
        <translation>プログラミング言語</translation>
    </message>
    <message>
        <source>Return Format</source>
        <translation>改行コード</translation>
    </message>
    <message>
        <source>Text Codec</source>
        <translation>文字コード</translation>
    </message>
</context>
<context>
    <name>CTabListButton</name>
    <message>
        <source>List of all tabs (%1)</source>
        <translation>すべてのタブの一覧 (%1)</translation>
    </message>
    <message>
        <source>List of all tabs</source>
        <translation>すべてのタブの一覧</translation>
    </message>
</context>
<context>
    <name>CWidgetFavorFileList</name>
    <message>
        <source>No selected folder</source>
        <translation>フォルダーが選択されていません</translation>
    </message>
    <message>
        <source>Please select a folder on Folder Browser.</source>
        <translation>フォルダー ブラウザーでフォルダーを選択してください。</translation>
    </message>
</context>
<context>
    <name>CWidgetFavoriteFolder</name>
    <message>
        <source>Open position of file/folder</source>
        <translation>ファイル/フォルダーの場所を開く</translation>
    </message>
    <message>
        <source>Main Folder List</source>
        <translation>お気に入りフォルダー</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>No selected folder</source>
        <translation>フォルダーが選択されていません</translation>
    </message>
    <message>
        <source>Please select a favor folder on Main Folder List to remove.</source>
        <translation>お気に入りフォルダーの一覧で、削除するフォルダーを選択してください。</translation>
    </message>
</context>
<context>
    <name>CWidgetFileList</name>
    <message>
        <source>Open position of file/folder</source>
        <translation>ファイル/フォルダーの場所を開く</translation>
    </message>
    <message>
        <source>Open file/folder by default application</source>
        <translation>ファイル/フォルダーを既定のアプリで開く</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>最新の情報に更新</translation>
    </message>
    <message>
        <source>Upper</source>
        <translation>上のフォルダーへ</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>Folder Browser</source>
        <translation>フォルダー ブラウザー</translation>
    </message>
    <message>
        <source>Select a folder</source>
        <translation>フォルダーの選択</translation>
    </message>
    <message>
        <source>No file or folder is selected.</source>
        <translation>ファイルもフォルダーも選択されていません。</translation>
    </message>
</context>
<context>
    <name>CWidgetFindInFiles</name>
    <message>
        <source>Searching</source>
        <translation>検索中</translation>
    </message>
    <message>
        <source>Find what</source>
        <translation>検索する文字列</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>置換後の文字列</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>フォルダー</translation>
    </message>
    <message>
        <source>File names</source>
        <translation>ファイル名</translation>
    </message>
    <message>
        <source>Patterns separated by semicolons; with ! before it, a pattern leaves files out. Empty: all files.</source>
        <translation>セミコロンで区切ったパターン。先頭に ! を付けたパターンのファイルは除かれます。空欄の場合はすべてのファイル。</translation>
    </message>
    <message>
        <source>Replace with:</source>
        <translation>置換後の文字列:</translation>
    </message>
    <message>
        <source>Match case</source>
        <translation>大文字と小文字を区別する</translation>
    </message>
    <message>
        <source>Match whole word only</source>
        <translation>単語単位で検索する</translation>
    </message>
    <message>
        <source>Use regular expression</source>
        <translation>正規表現を使う</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置換</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Find what:</source>
        <translation>検索する文字列:</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>フォルダー:</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>ファイル名:</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>一致した箇所</translation>
    </message>
    <message>
        <source>There is no text to search for.</source>
        <translation>検索する文字列がありません。</translation>
    </message>
    <message>
        <source>There is no such folder.</source>
        <translation>そのフォルダーはありません。</translation>
    </message>
    <message>
        <source>This is no regular expression: %1</source>
        <translation>正規表現ではありません: %1</translation>
    </message>
    <message>
        <source>Matches: %1, in %2 of %3 files.</source>
        <translation>一致: %1 件 (%3 ファイル中 %2 ファイル)。</translation>
    </message>
    <message>
        <source>Left out: %1 binary, %2 huge, %3 unreadable.</source>
        <translation>除外: バイナリ %1、巨大 %2、読み取り不可 %3。</translation>
    </message>
    <message>
        <source>There are more.</source>
        <translation>ほかにもあります。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>キャンセルしました。</translation>
    </message>
    <message>
        <source>Nothing was replaced.</source>
        <translation>何も置換されませんでした。</translation>
    </message>
    <message>
        <source>No match is checked.</source>
        <translation>チェックされた箇所がありません。</translation>
    </message>
    <message>
        <source>Files replaced: %1.</source>
        <translation>置換したファイル: %1。</translation>
    </message>
    <message>
        <source>Left as they were, with the reason: %1.</source>
        <translation>理由を示して元のままにしたファイル: %1。</translation>
    </message>
    <message>
        <source>Select a folder</source>
        <translation>フォルダーの選択</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>開く...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>書式</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Text Codec</source>
        <translation>文字コード</translation>
    </message>
    <message>
        <source>Return Format</source>
        <translation>改行コード</translation>
    </message>
    <message>
        <source>View</source>
        <translation>表示</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Main ToolBar</source>
        <translation>メイン ツールバー</translation>
    </message>
    <message>
        <source>HTML ToolBar</source>
        <translation>HTML ツールバー</translation>
    </message>
    <message>
        <source>About</source>
        <translation>バージョン情報</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>名前を付けて保存...</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>すべて保存</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>切り取り</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>太字</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>斜体</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>下線</translation>
    </message>
    <message>
        <source>Left to Right</source>
        <translation>左から右</translation>
    </message>
    <message>
        <source>Right to Left</source>
        <translation>右から左</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>再読み込み</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直し</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>New HTML</source>
        <translation>新しい HTML</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>検索...</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>New Text</source>
        <translation>新しいテキスト</translation>
    </message>
    <message>
        <source>Unknown Format</source>
        <translation>不明な形式</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
    <message>
        <source>SwapHtml</source>
        <translation>HTML 表示の切り替え</translation>
    </message>
    <message>
        <source>Switch html and source</source>
        <translation>HTML ページとソースを切り替え</translation>
    </message>
    <message>
        <source>Verify Valid</source>
        <translation>妥当性の検証</translation>
    </message>
    <message>
        <source>Verify Valid of content</source>
        <translation>内容の妥当性を検証</translation>
    </message>
    <message>
        <source>Formatting</source>
        <translation>整形</translation>
    </message>
    <message>
        <source>Line Wrap</source>
        <translation>行の折り返し</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>次を検索</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>前を検索</translation>
    </message>
    <message>
        <source>Toggle Comment</source>
        <translation>コメントの切り替え</translation>
    </message>
    <message>
        <source>Color Dialog</source>
        <translation>色の選択</translation>
    </message>
    <message>
        <source>Go to Line...</source>
        <translation>指定行へ移動...</translation>
    </message>
    <message>
        <source>Replace...</source>
        <translation>置換...</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置換</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Windows</translation>
    </message>
    <message>
        <source>Unix</source>
        <translation>Unix</translation>
    </message>
    <message>
        <source>OSX</source>
        <translation>OSX</translation>
    </message>
    <message>
        <source>Open position of file</source>
        <translation>ファイルの場所を開く</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>%1 について</translation>
    </message>
    <message>
        <source>Made by the Quillan developers.</source>
        <translation>制作: Quillan 開発者</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>新しいファイル</translation>
    </message>
    <message>
        <source>Fail to open file</source>
        <translation>ファイルを開けませんでした</translation>
    </message>
    <message>
        <source>Fail to open file(%1).</source>
        <translation>ファイル(%1)を開けませんでした。</translation>
    </message>
    <message>
        <source>(Untitled)</source>
        <translation>(無題)</translation>
    </message>
    <message>
        <source>The file is read-only.</source>
        <translation>このファイルは読み取り専用です。</translation>
    </message>
    <message>
        <source>File Modified</source>
        <translation>ファイルの変更</translation>
    </message>
    <message>
        <source>Are you sure to refresh and discard the modification?</source>
        <translation>変更を破棄して再読み込みしますか?</translation>
    </message>
    <message>
        <source>Page modified</source>
        <translation>ページの変更</translation>
    </message>
    <message>
        <source>File modified</source>
        <translation>ファイルの変更</translation>
    </message>
    <message>
        <source>Do you save the modified page?</source>
        <translation>変更したページを保存しますか?</translation>
    </message>
    <message>
        <source>Do you save the modified file?</source>
        <translation>変更したファイルを保存しますか?</translation>
    </message>
    <message>
        <source>The format of the content is good.</source>
        <translation>内容の形式は正しいです。</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>ファイルを開く</translation>
    </message>
    <message>
        <source>Web file (*.html *.htm *.css *.js); All files(*.*)</source>
        <translation>Web ファイル (*.html *.htm *.css *.js); すべてのファイル(*.*)</translation>
    </message>
    <message>
        <source>Fail to save file</source>
        <translation>ファイルを保存できませんでした</translation>
    </message>
    <message>
        <source>Cannot open file(%1).</source>
        <translation>ファイル(%1)を開けません。</translation>
    </message>
    <message>
        <source>Save file</source>
        <translation>ファイルの保存</translation>
    </message>
    <message>
        <source>All files(*.*)</source>
        <translation>すべてのファイル(*.*)</translation>
    </message>
    <message>
        <source>Cannot open file&quot;%1&quot;.</source>
        <translation>ファイル「%1」を開けません。</translation>
    </message>
    <message>
        <source>Unknown Language</source>
        <translation>不明な言語</translation>
    </message>
    <message>
        <source>Switch to html source edit</source>
        <translation>HTML ソースの編集に切り替え</translation>
    </message>
    <message>
        <source>Switch to html page edit</source>
        <translation>HTML ページの編集に切り替え</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Folder Browser</source>
        <translation>フォルダー ブラウザー</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>ドキュメント</translation>
    </message>
    <message>
        <source>This is another page than the document&apos;s file: Save As keeps it.</source>
        <translation>文書のファイルとは別のページです。保存するには「名前を付けて保存」を使ってください。</translation>
    </message>
    <message>
        <source>The file is not all text: not all of it can be shown.</source>
        <translation>このファイルはテキストだけではないため、すべては表示できません。</translation>
    </message>
    <message>
        <source>Unsaved text is kept as drafts again.</source>
        <translation>未保存のテキストを再び下書きとして保管しています。</translation>
    </message>
    <message>
        <source>Unsaved text cannot be kept as drafts: %1</source>
        <translation>未保存のテキストを下書きとして保管できません: %1</translation>
    </message>
    <message>
        <source>Files opened from elsewhere get a window of their own: the system&apos;s mailbox for them cannot be used.</source>
        <translation>ほかから開いたファイルは別のウィンドウになります。受け渡し用のシステムのメールボックスを使えません。</translation>
    </message>
    <message>
        <source>The program ended while it loaded %1: this is its source.</source>
        <translation>%1 の読み込み中にプログラムが終了したため、ソースを表示しています。</translation>
    </message>
    <message>
        <source>Show the page anyway</source>
        <translation>それでもページを表示</translation>
    </message>
    <message>
        <source>%1 is not opened: the program ended while it loaded it.</source>
        <translation>%1 は開かれていません。読み込み中にプログラムが終了しました。</translation>
    </message>
    <message>
        <source>Show the picture anyway</source>
        <translation>それでも画像を表示</translation>
    </message>
    <message>
        <source>The encoding is a guess: %1. Format, Text Codec reads the file in another.</source>
        <translation>エンコーディングは推測です: %1。「書式」の「文字コード」で別のものを選べます。</translation>
    </message>
    <message>
        <source>There is no tab %1.</source>
        <translation>タブ %1 はありません。</translation>
    </message>
</context>
<context>
    <name>XmlGuard</name>
    <message>
        <source>elements nest too deeply</source>
        <translation>要素の入れ子が深すぎます</translation>
    </message>
    <message>
        <source>declarations nest too deeply</source>
        <translation>宣言の入れ子が深すぎます</translation>
    </message>
    <message>
        <source>entities expand to too much text</source>
        <translation>実体を展開した文字列が長すぎます</translation>
    </message>
</context>
<context>
    <name>commonhelpers</name>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 B</source>
        <translation>%1 B</translation>
    </message>
</context>
</TS>
