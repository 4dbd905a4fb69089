<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
<context>
    <name>CArrivals</name>
    <message>
        <source>Loading %1</source>
        <translation>%1 を読み込み中</translation>
    </message>
    <message>
        <source>%1 could not be loaded: %2</source>
        <translation>%1 を読み込めませんでした: %2</translation>
    </message>
</context>
<context>
    <name>CDlgCharacters</name>
    <message>
        <source>Special Characters</source>
        <translation>特殊文字</translation>
    </message>
    <message>
        <source>Search by name or number</source>
        <translation>名前または番号で検索</translation>
    </message>
    <message>
        <source>Characters</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>挿入</translation>
    </message>
    <message>
        <source>No character has this name.</source>
        <translation>この名前の文字はありません。</translation>
    </message>
</context>
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
    <name>CDlgLink</name>
    <message>
        <source>Link</source>
        <translation>リンク</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>アドレス</translation>
    </message>
    <message>
        <source>File...</source>
        <translation>ファイル...</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>アドレス:</translation>
    </message>
    <message>
        <source>Text:</source>
        <translation>テキスト:</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>タイトル:</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>タイトル</translation>
    </message>
    <message>
        <source>Remove Link</source>
        <translation>リンクを解除</translation>
    </message>
</context>
<context>
    <name>CDlgPageProperties</name>
    <message>
        <source>Page Properties</source>
        <translation>ページのプロパティ</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>タイトル:</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>言語:</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>説明:</translation>
    </message>
    <message>
        <source>Text color:</source>
        <translation>文字の色:</translation>
    </message>
    <message>
        <source>Choose the text color</source>
        <translation>文字の色を選択</translation>
    </message>
    <message>
        <source>Background color:</source>
        <translation>背景色:</translation>
    </message>
    <message>
        <source>Choose the background color</source>
        <translation>背景色を選択</translation>
    </message>
    <message>
        <source>Style sheets:</source>
        <translation>スタイルシート:</translation>
    </message>
    <message>
        <source>One address in each line</source>
        <translation>1 行に 1 つのアドレス</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>選択...</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>File...</source>
        <translation>ファイル...</translation>
    </message>
    <message>
        <source>Style Sheet</source>
        <translation>スタイルシート</translation>
    </message>
    <message>
        <source>Style sheets (*.css)</source>
        <translation>スタイルシート (*.css)</translation>
    </message>
</context>
<context>
    <name>CDlgPicture</name>
    <message>
        <source>as in the file</source>
        <translation>ファイルのとおり</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Keep &amp;proportions</source>
        <translation>縦横比を保つ(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Copy the file beside the page</source>
        <translation>ファイルをページの隣にコピーする(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>ファイル(&amp;F):</translation>
    </message>
    <message>
        <source>&amp;Text instead:</source>
        <translation>代替テキスト(&amp;T):</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>幅(&amp;W):</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>高さ(&amp;H):</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.gif *.svg *.webp *.bmp *.ico);;All files (*)</source>
        <translation>画像 (*.png *.jpg *.jpeg *.gif *.svg *.webp *.bmp *.ico);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>There is no picture of this name.</source>
        <translation>この名前の画像はありません。</translation>
    </message>
    <message>
        <source>The file lies outside the page&apos;s folders, where this page may not show it.</source>
        <translation>ファイルはページのフォルダーの外にあり、このページでは表示できません。</translation>
    </message>
    <message>
        <source>What the picture shows; leave empty for decoration</source>
        <translation>画像の内容。飾りの場合は空欄</translation>
    </message>
    <message>
        <source>Original size: %1 × %2 pixels</source>
        <translation>元の大きさ: %1 × %2 ピクセル</translation>
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
    <message>
        <source>The file is still being loaded.</source>
        <translation>ファイルはまだ読み込み中です。</translation>
    </message>
    <message>
        <source>The text is shown in pieces and cannot be changed.</source>
        <translation>テキストは分割して表示されているため、変更できません。</translation>
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
    <message>
        <source>%1 is not shown, because %2.</source>
        <translation>%1 は表示されません（%2）。</translation>
    </message>
    <message>
        <source>Pasted as text, because %1.</source>
        <translation>テキストとして貼り付けました（%1）。</translation>
    </message>
</context>
<context>
    <name>CEditorDocument</name>
    <message>
        <source>%1 (loading)</source>
        <translation>%1 (読み込み中)</translation>
    </message>
    <message>
        <source>%1 has a line of %2 characters. Shown whole, it stops the window for some time whenever it is drawn anew; in pieces, the text can be read, but not changed or saved.</source>
        <translation>%1 には %2 文字の行があります。そのまま表示すると、描き直すたびにウィンドウがしばらく止まります。分割して表示すると、読むことはできますが、変更や保存はできません。</translation>
    </message>
    <message>
        <source>Show it in pieces</source>
        <translation>分割して表示</translation>
    </message>
    <message>
        <source>Show it whole</source>
        <translation>そのまま表示</translation>
    </message>
    <message>
        <source>Long lines of %1 are shown in pieces: it can be read, but not changed or saved.</source>
        <translation>%1 の長い行は分割して表示されています。読むことはできますが、変更や保存はできません。</translation>
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
        <source>The trash does not tell where the file is.</source>
        <translation>ごみ箱の中の場所がわかりません。</translation>
    </message>
    <message>
        <source>%1 is in the trash.</source>
        <translation>%1 をごみ箱に移動しました。</translation>
    </message>
    <message>
        <source>%1 entries are in the trash.</source>
        <translation>%1 個の項目をごみ箱に移動しました。</translation>
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
    <message>
        <source>Replace All is still at work.</source>
        <translation>すべて置換を実行中です。</translation>
    </message>
    <message>
        <source>Replace All was stopped; nothing is replaced.</source>
        <translation>すべて置換を中止しました。何も置換していません。</translation>
    </message>
    <message numerus="yes">
        <source>The text was changed: Replace All ended after %n matches.</source>
        <translation>
            <numerusform>テキストが変更されたため、すべて置換は %n 件で終了しました。</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no dictionary for this language.</source>
        <translation>この言語の辞書がありません。</translation>
    </message>
    <message>
        <source>Misspelt words are no longer marked.</source>
        <translation>綴りの誤りを示す印を消しました。</translation>
    </message>
    <message>
        <source>Misspelt words in comments and strings are marked.</source>
        <translation>コメントと文字列の綴りの誤りに印を付けます。</translation>
    </message>
    <message>
        <source>Misspelt words are marked.</source>
        <translation>綴りの誤りに印を付けます。</translation>
    </message>
    <message>
        <source>No misspelt word follows.</source>
        <translation>この先に綴りの誤りはありません。</translation>
    </message>
    <message>
        <source>The word could not be kept: %1</source>
        <translation>単語を保存できませんでした: %1</translation>
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
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
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
        <source>The old text is kept and will be offered at the next start.</source>
        <translation>元の内容は控えてあり、次回の起動時に復元できます。</translation>
    </message>
    <message>
        <source>The old text cannot be kept during the save: %1</source>
        <translation>保存中に元の内容を控えておくことができません: %1</translation>
    </message>
</context>
<context>
    <name>CNoticeBar</name>
    <message>
        <source>Close this notice</source>
        <translation>このお知らせを閉じる</translation>
    </message>
    <message>
        <source>Unsaved documents</source>
        <translation>保存されていない文書</translation>
    </message>
</context>
<context>
    <name>CPageHazards</name>
    <message>
        <source>one of its elements has too many attributes</source>
        <translation>属性の多すぎる要素がある</translation>
    </message>
    <message>
        <source>the parts of a drawing in it use each other too often</source>
        <translation>図形の部品が互いを使いすぎている</translation>
    </message>
    <message>
        <source>its effects take too long to be drawn</source>
        <translation>効果の描画に時間がかかりすぎる</translation>
    </message>
    <message>
        <source>it has a text that is too long to be laid out</source>
        <translation>長すぎて組版できないテキストがある</translation>
    </message>
    <message>
        <source>it has too many form fields</source>
        <translation>フォームの項目が多すぎる</translation>
    </message>
    <message>
        <source>its table cells span too many others</source>
        <translation>表のセルがまたぐ範囲が広すぎる</translation>
    </message>
    <message>
        <source>its elements are nested too deeply</source>
        <translation>要素の入れ子が深すぎる</translation>
    </message>
    <message>
        <source>its flexible boxes are nested too deeply</source>
        <translation>フレックスボックスの入れ子が深すぎる</translation>
    </message>
    <message>
        <source>its columns are nested too deeply</source>
        <translation>段組みの入れ子が深すぎる</translation>
    </message>
    <message>
        <source>its reflections are nested too deeply</source>
        <translation>反射の入れ子が深すぎる</translation>
    </message>
</context>
<context>
    <name>CPageObjects</name>
    <message>
        <source>Insert Row &amp;Above</source>
        <translation>上に行を挿入(&amp;A)</translation>
    </message>
    <message>
        <source>Insert Row &amp;Below</source>
        <translation>下に行を挿入(&amp;B)</translation>
    </message>
    <message>
        <source>Insert Column &amp;Left</source>
        <translation>左に列を挿入(&amp;L)</translation>
    </message>
    <message>
        <source>Insert Column &amp;Right</source>
        <translation>右に列を挿入(&amp;R)</translation>
    </message>
    <message>
        <source>Move Row &amp;Up</source>
        <translation>行を上へ移動(&amp;U)</translation>
    </message>
    <message>
        <source>Move Row &amp;Down</source>
        <translation>行を下へ移動(&amp;D)</translation>
    </message>
    <message>
        <source>Move Column L&amp;eft</source>
        <translation>列を左へ移動(&amp;E)</translation>
    </message>
    <message>
        <source>Move Column R&amp;ight</source>
        <translation>列を右へ移動(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Merge Cells</source>
        <translation>セルを結合(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Split Cell</source>
        <translation>セルを分割(&amp;S)</translation>
    </message>
    <message>
        <source>Delete R&amp;ows</source>
        <translation>行を削除(&amp;O)</translation>
    </message>
    <message>
        <source>Delete &amp;Columns</source>
        <translation>列を削除(&amp;C)</translation>
    </message>
    <message>
        <source>Delete &amp;Table</source>
        <translation>表を削除(&amp;T)</translation>
    </message>
    <message>
        <source>Picture...</source>
        <translation>画像...</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>表</translation>
    </message>
    <message>
        <source>&amp;Header Row</source>
        <translation>見出し行(&amp;H)</translation>
    </message>
    <message>
        <source>That cannot be done with these cells.</source>
        <translation>これらのセルには実行できません。</translation>
    </message>
</context>
<context>
    <name>CPagePictures</name>
    <message>
        <source>Save the page first: addresses of pictures lead from its file.</source>
        <translation>先にページを保存してください。画像のアドレスはページのファイルを起点とします。</translation>
    </message>
    <message>
        <source>The picture could not be copied: %1</source>
        <translation>画像をコピーできませんでした: %1</translation>
    </message>
    <message>
        <source>The picture could not be stored: %1</source>
        <translation>画像を保存できませんでした: %1</translation>
    </message>
</context>
<context>
    <name>CPageSpelling</name>
    <message>
        <source>Misspelt words are marked.</source>
        <translation>綴りの誤りに印を付けます。</translation>
    </message>
    <message>
        <source>Misspelt words are no longer marked.</source>
        <translation>綴りの誤りを示す印を消しました。</translation>
    </message>
    <message>
        <source>No misspelt word follows.</source>
        <translation>この先に綴りの誤りはありません。</translation>
    </message>
    <message>
        <source>There is no dictionary for this language.</source>
        <translation>この言語の辞書がありません。</translation>
    </message>
    <message>
        <source>The word could not be kept: %1</source>
        <translation>単語を保存できませんでした: %1</translation>
    </message>
</context>
<context>
    <name>CPageToolBar</name>
    <message>
        <source>Paragraph</source>
        <translation>段落</translation>
    </message>
    <message>
        <source>Heading 1</source>
        <translation>見出し 1</translation>
    </message>
    <message>
        <source>Heading 2</source>
        <translation>見出し 2</translation>
    </message>
    <message>
        <source>Heading 3</source>
        <translation>見出し 3</translation>
    </message>
    <message>
        <source>Heading 4</source>
        <translation>見出し 4</translation>
    </message>
    <message>
        <source>Heading 5</source>
        <translation>見出し 5</translation>
    </message>
    <message>
        <source>Heading 6</source>
        <translation>見出し 6</translation>
    </message>
    <message>
        <source>Preformatted</source>
        <translation>整形済み</translation>
    </message>
    <message>
        <source>Quotation</source>
        <translation>引用</translation>
    </message>
    <message>
        <source>Bulleted List</source>
        <translation>箇条書き</translation>
    </message>
    <message>
        <source>Numbered List</source>
        <translation>番号付きリスト</translation>
    </message>
    <message>
        <source>Outdent</source>
        <translation>インデントを減らす</translation>
    </message>
    <message>
        <source>Indent</source>
        <translation>インデントを増やす</translation>
    </message>
    <message>
        <source>Align Left</source>
        <translation>左揃え</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>中央揃え</translation>
    </message>
    <message>
        <source>Align Right</source>
        <translation>右揃え</translation>
    </message>
    <message>
        <source>Justify</source>
        <translation>両端揃え</translation>
    </message>
    <message>
        <source>Strikethrough</source>
        <translation>取り消し線</translation>
    </message>
    <message>
        <source>Superscript</source>
        <translation>上付き</translation>
    </message>
    <message>
        <source>Subscript</source>
        <translation>下付き</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>コード</translation>
    </message>
    <message>
        <source>Paragraph Style</source>
        <translation>段落スタイル</translation>
    </message>
    <message>
        <source>Clear Formatting</source>
        <translation>書式をクリア</translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>プレーンテキストとして貼り付け</translation>
    </message>
    <message>
        <source>Link...</source>
        <translation>リンク...</translation>
    </message>
    <message>
        <source>Remove Link</source>
        <translation>リンクを解除</translation>
    </message>
    <message>
        <source>Horizontal Line</source>
        <translation>水平線</translation>
    </message>
    <message>
        <source>Special Characters...</source>
        <translation>特殊文字...</translation>
    </message>
    <message>
        <source>Page Properties...</source>
        <translation>ページのプロパティ...</translation>
    </message>
    <message>
        <source>Headings and Anchors</source>
        <translation>見出しとアンカー</translation>
    </message>
    <message>
        <source>%1 (of a part)</source>
        <translation>%1（一部）</translation>
    </message>
    <message>
        <source>No headings</source>
        <translation>見出しはありません</translation>
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
        <source>This file is not drawn here: it would crash the program.</source>
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
    <message>
        <source>Unsaved text cannot be kept as drafts: %1</source>
        <translation>未保存のテキストを下書きとして保管できません: %1</translation>
    </message>
    <message>
        <source>%1 documents were left unsaved when the program last ended:</source>
        <translation>前回の終了時に保存されなかった文書が %1 件あります:</translation>
    </message>
</context>
<context>
    <name>CSearch</name>
    <message>
        <source>Replacing</source>
        <translation>置換しています</translation>
    </message>
</context>
<context>
    <name>CSidePanels</name>
    <message>
        <source>Listing the folder</source>
        <translation>フォルダーを一覧しています</translation>
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
    <name>CSuggestionMenu</name>
    <message>
        <source>Suggestions for &quot;%1&quot;</source>
        <translation>「%1」の候補</translation>
    </message>
    <message>
        <source>No suggestions</source>
        <translation>候補はありません</translation>
    </message>
    <message>
        <source>Add to dictionary</source>
        <translation>辞書に追加</translation>
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
    <name>CTableChooser</name>
    <message>
        <source>New table: %1 rows, %2 columns</source>
        <translation>新しい表: %1 行 %2 列</translation>
    </message>
    <message>
        <source>%1 × %2</source>
        <translation>%1 × %2</translation>
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
    <message>
        <source>The listing was stopped; not all of the folder is shown.</source>
        <translation>一覧を中止しました。フォルダーのすべては表示していません。</translation>
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
    <message>
        <source>Replacing in files</source>
        <translation>ファイル内を置換しています</translation>
    </message>
    <message>
        <source>Searching in files</source>
        <translation>ファイル内を検索しています</translation>
    </message>
</context>
<context>
    <name>CWorkProgress</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Stop this (Esc)</source>
        <translation>中止 (Esc)</translation>
    </message>
    <message numerus="yes">
        <source>%1 (and %n more)</source>
        <translation>
            <numerusform>%1 (ほか %n 件)</numerusform>
        </translation>
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
        <source>Show the page anyway</source>
        <translation>それでもページを表示</translation>
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
    <message>
        <source>Page</source>
        <translation>ページ</translation>
    </message>
    <message>
        <source>%1 is %2. Open it anyway?</source>
        <translation>%1 は %2 です。それでも開きますか？</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>This build cannot show pages: this is the source of %1.</source>
        <translation>このビルドではページを表示できません。%1 のソースを表示しています。</translation>
    </message>
    <message>
        <source>%1 crashed the program: this is its source.</source>
        <translation>%1 の読み込み中にプログラムが終了したため、ソースを表示しています。</translation>
    </message>
    <message>
        <source>Showing %1 could crash the program, because %2: this is its source.</source>
        <translation>%1 を表示するとプログラムが終了するおそれがあるため（%2）、ソースを表示しています。</translation>
    </message>
    <message>
        <source>%1 is not opened: it crashed the program.</source>
        <translation>%1 は開かれていません。読み込み中にプログラムが終了しました。</translation>
    </message>
    <message>
        <source>The shown page is not the document&apos;s file: Save As keeps it.</source>
        <translation>文書のファイルとは別のページです。保存するには「名前を付けて保存」を使ってください。</translation>
    </message>
</context>
<context>
    <name>QWebView</name>
    <message>
        <source>This build cannot show pages, only their source.</source>
        <translation>このビルドではページを表示できません。ソースのみ表示できます。</translation>
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
