<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CArrivals</name>
    <message>
        <source>Loading %1</source>
        <translation>正在加载 %1</translation>
    </message>
    <message>
        <source>%1 could not be loaded: %2</source>
        <translation>无法加载 %1：%2</translation>
    </message>
</context>
<context>
    <name>CDlgCharacters</name>
    <message>
        <source>Special Characters</source>
        <translation>特殊字符</translation>
    </message>
    <message>
        <source>Search by name or number</source>
        <translation>按名称或编号搜索</translation>
    </message>
    <message>
        <source>Characters</source>
        <translation>字符</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>No character has this name.</source>
        <translation>没有此名称的字符。</translation>
    </message>
</context>
<context>
    <name>CDlgFind</name>
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>Find what:</source>
        <translation>查找内容：</translation>
    </message>
    <message>
        <source>Find what</source>
        <translation>查找内容</translation>
    </message>
    <message>
        <source>Match whole word only</source>
        <translation>全字匹配</translation>
    </message>
    <message>
        <source>Match case</source>
        <translation>区分大小写</translation>
    </message>
    <message>
        <source>Use regular expression</source>
        <translation>使用正则表达式</translation>
    </message>
    <message>
        <source>Search up</source>
        <translation>向上查找</translation>
    </message>
    <message>
        <source>Wrap search</source>
        <translation>循环查找</translation>
    </message>
    <message>
        <source>Auto close after click &quot;Find Next&quot;</source>
        <translation>单击“查找下一个”后自动关闭</translation>
    </message>
    <message>
        <source>Thransparent</source>
        <translation>不透明度</translation>
    </message>
    <message>
        <source>Opacity in percent while the window is inactive</source>
        <translation>窗口未激活时的不透明度（百分比）</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Replace with:</source>
        <translation>替换为：</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>替换为</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>查找下一个</translation>
    </message>
    <message>
        <source>Replace All</source>
        <translation>全部替换</translation>
    </message>
    <message>
        <source>Find: the top has been reached.</source>
        <translation>查找：已到达文件开头。</translation>
    </message>
    <message>
        <source>Find: the end has been reached.</source>
        <translation>查找：已到达文件末尾。</translation>
    </message>
    <message>
        <source>Find: the string cannot be found.</source>
        <translation>查找：未找到指定的文本。</translation>
    </message>
    <message>
        <source>Replace All: %1 item has been replaced.</source>
        <translation>全部替换：已替换 %1 处。</translation>
    </message>
    <message>
        <source>Replace All: %1 items have been replaced.</source>
        <translation>全部替换：已替换 %1 处。</translation>
    </message>
    <message>
        <source>Find and replace</source>
        <translation>查找和替换</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>第 %1 个，共 %2 个</translation>
    </message>
</context>
<context>
    <name>CDlgGo</name>
    <message>
        <source>Go to Line</source>
        <translation>转到行</translation>
    </message>
    <message>
        <source>Line:</source>
        <translation>行号：</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>行号</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>转到</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>CDlgLink</name>
    <message>
        <source>Link</source>
        <translation>链接</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>File...</source>
        <translation>文件...</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>地址：</translation>
    </message>
    <message>
        <source>Text:</source>
        <translation>文字：</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>标题：</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Remove Link</source>
        <translation>移除链接</translation>
    </message>
</context>
<context>
    <name>CDlgPageProperties</name>
    <message>
        <source>Page Properties</source>
        <translation>页面属性</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>标题：</translation>
    </message>
    <message>
        <source>Language:</source>
        <translation>语言：</translation>
    </message>
    <message>
        <source>Description:</source>
        <translation>描述：</translation>
    </message>
    <message>
        <source>Text color:</source>
        <translation>文字颜色：</translation>
    </message>
    <message>
        <source>Choose the text color</source>
        <translation>选择文字颜色</translation>
    </message>
    <message>
        <source>Background color:</source>
        <translation>背景颜色：</translation>
    </message>
    <message>
        <source>Choose the background color</source>
        <translation>选择背景颜色</translation>
    </message>
    <message>
        <source>Style sheets:</source>
        <translation>样式表：</translation>
    </message>
    <message>
        <source>One address in each line</source>
        <translation>每行一个地址</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>选择...</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>File...</source>
        <translation>文件...</translation>
    </message>
    <message>
        <source>Style Sheet</source>
        <translation>样式表</translation>
    </message>
    <message>
        <source>Style sheets (*.css)</source>
        <translation>样式表 (*.css)</translation>
    </message>
</context>
<context>
    <name>CDlgPicture</name>
    <message>
        <source>as in the file</source>
        <translation>与文件相同</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Keep &amp;proportions</source>
        <translation>保持比例(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Copy the file beside the page</source>
        <translation>将文件复制到网页旁(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>文件(&amp;F)：</translation>
    </message>
    <message>
        <source>&amp;Text instead:</source>
        <translation>替代文本(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>宽度(&amp;W)：</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>高度(&amp;H)：</translation>
    </message>
    <message>
        <source>Pictures (*.png *.jpg *.jpeg *.gif *.svg *.webp *.bmp *.ico);;All files (*)</source>
        <translation>图片 (*.png *.jpg *.jpeg *.gif *.svg *.webp *.bmp *.ico);;所有文件 (*)</translation>
    </message>
    <message>
        <source>There is no picture of this name.</source>
        <translation>没有此名称的图片。</translation>
    </message>
    <message>
        <source>The file lies outside the page&apos;s folders, where this page may not show it.</source>
        <translation>文件位于网页的文件夹之外，该网页不能显示它。</translation>
    </message>
    <message>
        <source>What the picture shows; leave empty for decoration</source>
        <translation>图片的内容；装饰图片留空</translation>
    </message>
    <message>
        <source>Original size: %1 × %2 pixels</source>
        <translation>原始大小：%1 × %2 像素</translation>
    </message>
</context>
<context>
    <name>CDocument</name>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>无法读取文件：%1</translation>
    </message>
    <message>
        <source>Overwrite</source>
        <translation>覆盖</translation>
    </message>
    <message>
        <source>%1 is no longer there. Saving writes it again.</source>
        <translation>%1 已不存在。保存会重新写入该文件。</translation>
    </message>
    <message>
        <source>Another tab has saved %1.</source>
        <translation>另一个标签页已保存 %1。</translation>
    </message>
    <message>
        <source>Another program has changed %1.</source>
        <translation>另一个程序已更改 %1。</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Not saved: another tab has saved %1.</source>
        <translation>未保存：另一个标签页已保存 %1。</translation>
    </message>
    <message>
        <source>Not saved: another program has changed %1.</source>
        <translation>未保存：另一个程序已更改 %1。</translation>
    </message>
    <message>
        <source>Not saved: not all of %1 can be shown as text, and saving loses the rest.</source>
        <translation>未保存：%1 的内容无法全部显示为文本，保存会丢失其余部分。</translation>
    </message>
    <message>
        <source>Not saved: the encoding of %1 is a guess (%2). Saving writes what the window shows, as UTF-8; if that is wrong, choose another Text Codec.</source>
        <translation>未保存：%1 的编码是推测的（%2）。保存会将窗口所示内容写为 UTF-8；如果显示有误，请选择其他文本编码。</translation>
    </message>
    <message>
        <source>Save all the same</source>
        <translation>仍然保存</translation>
    </message>
    <message>
        <source>The file is still being loaded.</source>
        <translation>文件仍在加载。</translation>
    </message>
    <message>
        <source>The text is shown in pieces and cannot be changed.</source>
        <translation>文本以分段方式显示，无法更改。</translation>
    </message>
</context>
<context>
    <name>CDraftKeeper</name>
    <message>
        <source>The draft could not be written.</source>
        <translation>无法写入草稿。</translation>
    </message>
</context>
<context>
    <name>CEditWebView</name>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Open file position</source>
        <translation>打开文件所在位置</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>Cannot open file(%1).</source>
        <translation>无法打开文件(%1)。</translation>
    </message>
    <message>
        <source>Page editor</source>
        <translation>页面编辑器</translation>
    </message>
    <message>
        <source>The frames of this page are not edited.</source>
        <translation>此页面的框架不可编辑。</translation>
    </message>
    <message>
        <source>%1 pictures are not shown: they lie outside the page&apos;s folders or on the network</source>
        <translation>有 %1 张图片未显示：它们位于页面文件夹之外或网络上</translation>
    </message>
    <message>
        <source>1 picture is not shown: it lies outside the page&apos;s folders</source>
        <translation>有 1 张图片未显示：它位于页面文件夹之外</translation>
    </message>
    <message>
        <source>%1 pictures are not shown: they lie outside the page&apos;s folders</source>
        <translation>有 %1 张图片未显示：它们位于页面文件夹之外</translation>
    </message>
    <message>
        <source>1 picture is not shown: it lies on the network</source>
        <translation>有 1 张图片未显示：它位于网络上</translation>
    </message>
    <message>
        <source>%1 pictures are not shown: they lie on the network</source>
        <translation>有 %1 张图片未显示：它们位于网络上</translation>
    </message>
    <message>
        <source>Not shown: the picture lies on the network</source>
        <translation>未显示：图片位于网络上</translation>
    </message>
    <message>
        <source>Not shown: the picture lies outside the page&apos;s folders</source>
        <translation>未显示：图片位于页面文件夹之外</translation>
    </message>
    <message>
        <source>%1 is not shown, because %2.</source>
        <translation>未显示 %1：%2。</translation>
    </message>
    <message>
        <source>Pasted as text, because %1.</source>
        <translation>已作为文本粘贴：%1。</translation>
    </message>
</context>
<context>
    <name>CEditorDocument</name>
    <message>
        <source>%1 (loading)</source>
        <translation>%1（正在加载）</translation>
    </message>
    <message>
        <source>%1 has a line of %2 characters. Shown whole, it stops the window for some time whenever it is drawn anew; in pieces, the text can be read, but not changed or saved.</source>
        <translation>%1 中有一行长达 %2 个字符。若整行显示，每次重新绘制时窗口都会停顿一段时间；若分段显示，则只能阅读，不能更改或保存。</translation>
    </message>
    <message>
        <source>Show it in pieces</source>
        <translation>分段显示</translation>
    </message>
    <message>
        <source>Show it whole</source>
        <translation>整行显示</translation>
    </message>
    <message>
        <source>Long lines of %1 are shown in pieces: it can be read, but not changed or saved.</source>
        <translation>%1 的长行已分段显示：只能阅读，不能更改或保存。</translation>
    </message>
</context>
<context>
    <name>CFileActions</name>
    <message>
        <source>This cannot be a name: %1</source>
        <translation>这不能作为名称：%1</translation>
    </message>
    <message>
        <source>%1 was not renamed: %2</source>
        <translation>%1 未被重命名：%2</translation>
    </message>
    <message>
        <source>%1 is now %2. Ctrl+Z takes it back.</source>
        <translation>%1 已改名为 %2。按 Ctrl+Z 可撤回。</translation>
    </message>
    <message>
        <source>%1 cannot be moved to the trash.</source>
        <translation>无法将 %1 移到回收站。</translation>
    </message>
    <message>
        <source>%1 is in the trash. Ctrl+Z takes it back.</source>
        <translation>%1 已移到回收站。按 Ctrl+Z 可撤回。</translation>
    </message>
    <message>
        <source>%1 entries are in the trash. Ctrl+Z takes them back.</source>
        <translation>已将 %1 项移到回收站。按 Ctrl+Z 可撤回。</translation>
    </message>
    <message>
        <source>New folder</source>
        <translation>新建文件夹</translation>
    </message>
    <message>
        <source>A folder cannot be made here.</source>
        <translation>无法在此处新建文件夹。</translation>
    </message>
    <message>
        <source>There is nothing to take back.</source>
        <translation>没有可撤回的操作。</translation>
    </message>
    <message>
        <source>%1 cannot be taken back: %2</source>
        <translation>无法撤回 %1：%2</translation>
    </message>
    <message>
        <source>Taken back.</source>
        <translation>已撤回。</translation>
    </message>
    <message>
        <source>The folder is not empty.</source>
        <translation>文件夹不是空的。</translation>
    </message>
    <message>
        <source>The trash does not tell where the file is.</source>
        <translation>回收站没有告知其位置。</translation>
    </message>
    <message>
        <source>%1 is in the trash.</source>
        <translation>%1 已移到回收站。</translation>
    </message>
    <message>
        <source>%1 entries are in the trash.</source>
        <translation>已将 %1 项移到回收站。</translation>
    </message>
</context>
<context>
    <name>CFileReplacement</name>
    <message>
        <source>The disk did not keep what was written: %1</source>
        <translation>写入的内容未能保存到磁盘：%1</translation>
    </message>
    <message>
        <source>The folder may not have kept what was written: %1</source>
        <translation>写入的内容可能未保存到文件夹：%1</translation>
    </message>
</context>
<context>
    <name>CFileReplacer</name>
    <message>
        <source>It has changed since the search.</source>
        <translation>搜索之后文件已更改。</translation>
    </message>
    <message>
        <source>It is not UTF-8: saving it from the editor would convert it.</source>
        <translation>文件不是 UTF-8：从编辑器保存会转换其编码。</translation>
    </message>
</context>
<context>
    <name>CFileSystemModel</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Ext. Name</source>
        <translation>扩展名</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>修改日期</translation>
    </message>
</context>
<context>
    <name>CFindDock</name>
    <message>
        <source>Find in Files</source>
        <translation>在文件中查找</translation>
    </message>
    <message>
        <source>It is open with unsaved changes.</source>
        <translation>该文件已打开且有未保存的更改。</translation>
    </message>
    <message>
        <source>The text has changed since the search.</source>
        <translation>搜索之后文本已更改。</translation>
    </message>
</context>
<context>
    <name>CHighlightEdit</name>
    <message>
        <source>Text editor</source>
        <translation>文本编辑器</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Toggle Comment</source>
        <translation>切换注释</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Open file position</source>
        <translation>打开文件所在位置</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>row: %1, col: %2, sel: %3</source>
        <translation>行: %1, 列: %2, 选中: %3</translation>
    </message>
    <message>
        <source>Fail to open file</source>
        <translation>打开文件失败</translation>
    </message>
    <message>
        <source>Fail to open file(%1).</source>
        <translation>打开文件(%1)失败。</translation>
    </message>
    <message>
        <source>Cannot open file(%1).</source>
        <translation>无法打开文件(%1)。</translation>
    </message>
    <message>
        <source>Line %1, Column %2: %3</source>
        <translation>第 %1 行，第 %2 列：%3</translation>
    </message>
    <message>
        <source>Fail to verify valid</source>
        <translation>验证失败</translation>
    </message>
    <message>
        <source>There is no bracket beside the cursor.</source>
        <translation>光标旁没有括号。</translation>
    </message>
    <message>
        <source>This bracket has no partner.</source>
        <translation>此括号没有与之配对的括号。</translation>
    </message>
    <message>
        <source>There is no line above.</source>
        <translation>上方没有行。</translation>
    </message>
    <message>
        <source>There is no line below.</source>
        <translation>下方没有行。</translation>
    </message>
    <message>
        <source>No word is selected.</source>
        <translation>没有选中的词。</translation>
    </message>
    <message>
        <source>Selected occurrences: %1</source>
        <translation>已选中出现处：%1</translation>
    </message>
    <message>
        <source>There is no line to delete.</source>
        <translation>没有可删除的行。</translation>
    </message>
    <message>
        <source>There are no lower-case letters here.</source>
        <translation>此处没有小写字母。</translation>
    </message>
    <message>
        <source>There are no upper-case letters here.</source>
        <translation>此处没有大写字母。</translation>
    </message>
    <message>
        <source>The lines are in order already.</source>
        <translation>各行已经有序。</translation>
    </message>
    <message>
        <source>No other word begins like this.</source>
        <translation>没有以此开头的其他词。</translation>
    </message>
    <message>
        <source>The block ends here.</source>
        <translation>块到此为止。</translation>
    </message>
    <message>
        <source>There is no line %1; the last line is %2.</source>
        <translation>没有第 %1 行；最后一行是第 %2 行。</translation>
    </message>
    <message>
        <source>Line %1, Column %2</source>
        <translation>第 %1 行，第 %2 列</translation>
    </message>
    <message>
        <source>Replace All is still at work.</source>
        <translation>全部替换仍在进行。</translation>
    </message>
    <message>
        <source>Replace All was stopped; nothing is replaced.</source>
        <translation>全部替换已停止，未作任何替换。</translation>
    </message>
    <message numerus="yes">
        <source>The text was changed: Replace All ended after %n matches.</source>
        <translation>
            <numerusform>文本已更改：全部替换在 %n 处匹配之后结束。</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no dictionary for this language.</source>
        <translation>没有此语言的词典。</translation>
    </message>
    <message>
        <source>Misspelt words are no longer marked.</source>
        <translation>不再标出拼写错误的单词。</translation>
    </message>
    <message>
        <source>Misspelt words in comments and strings are marked.</source>
        <translation>标出注释和字符串中拼写错误的单词。</translation>
    </message>
    <message>
        <source>Misspelt words are marked.</source>
        <translation>标出拼写错误的单词。</translation>
    </message>
    <message>
        <source>No misspelt word follows.</source>
        <translation>后面没有拼写错误的单词。</translation>
    </message>
    <message>
        <source>The word could not be kept: %1</source>
        <translation>无法保存该单词：%1</translation>
    </message>
</context>
<context>
    <name>CHtmlToolBar</name>
    <message>
        <source>Black</source>
        <translation>黑色</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>灰色</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>橙色</translation>
    </message>
    <message>
        <source>Yellow</source>
        <translation>黄色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>紫色</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白色</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>字号</translation>
    </message>
    <message>
        <source>Text Color</source>
        <translation>文字颜色</translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation>背景颜色</translation>
    </message>
    <message>
        <source>More Colors...</source>
        <translation>其他颜色...</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
</context>
<context>
    <name>CImageDocument</name>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>无法读取文件：%1</translation>
    </message>
</context>
<context>
    <name>CImageWidget</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
</context>
<context>
    <name>CInPlaceWriter</name>
    <message>
        <source>It is no ordinary file.</source>
        <translation>这不是普通文件。</translation>
    </message>
    <message>
        <source>Nobody reads at the other end.</source>
        <translation>另一端没有程序在读取。</translation>
    </message>
    <message>
        <source>The old text is kept and will be offered at the next start.</source>
        <translation>原有内容已保留，下次启动时可以恢复。</translation>
    </message>
    <message>
        <source>The old text cannot be kept during the save: %1</source>
        <translation>保存期间无法保留原有内容：%1</translation>
    </message>
</context>
<context>
    <name>CNoticeBar</name>
    <message>
        <source>Close this notice</source>
        <translation>关闭此通知</translation>
    </message>
    <message>
        <source>Unsaved documents</source>
        <translation>未保存的文档</translation>
    </message>
</context>
<context>
    <name>CPageHazards</name>
    <message>
        <source>one of its elements has too many attributes</source>
        <translation>其中一个元素的属性过多</translation>
    </message>
    <message>
        <source>the parts of a drawing in it use each other too often</source>
        <translation>其中图形的各部分相互引用过多</translation>
    </message>
    <message>
        <source>its effects take too long to be drawn</source>
        <translation>其效果绘制时间过长</translation>
    </message>
    <message>
        <source>it has a text that is too long to be laid out</source>
        <translation>其中有过长而无法排版的文本</translation>
    </message>
    <message>
        <source>it has too many form fields</source>
        <translation>其表单字段过多</translation>
    </message>
    <message>
        <source>its table cells span too many others</source>
        <translation>其表格单元格跨越过多</translation>
    </message>
    <message>
        <source>its elements are nested too deeply</source>
        <translation>其元素嵌套过深</translation>
    </message>
    <message>
        <source>its flexible boxes are nested too deeply</source>
        <translation>其弹性盒嵌套过深</translation>
    </message>
    <message>
        <source>its columns are nested too deeply</source>
        <translation>其分栏嵌套过深</translation>
    </message>
    <message>
        <source>its reflections are nested too deeply</source>
        <translation>其倒影嵌套过深</translation>
    </message>
</context>
<context>
    <name>CPageObjects</name>
    <message>
        <source>Insert Row &amp;Above</source>
        <translation>在上方插入行(&amp;A)</translation>
    </message>
    <message>
        <source>Insert Row &amp;Below</source>
        <translation>在下方插入行(&amp;B)</translation>
    </message>
    <message>
        <source>Insert Column &amp;Left</source>
        <translation>在左侧插入列(&amp;L)</translation>
    </message>
    <message>
        <source>Insert Column &amp;Right</source>
        <translation>在右侧插入列(&amp;R)</translation>
    </message>
    <message>
        <source>Move Row &amp;Up</source>
        <translation>上移行(&amp;U)</translation>
    </message>
    <message>
        <source>Move Row &amp;Down</source>
        <translation>下移行(&amp;D)</translation>
    </message>
    <message>
        <source>Move Column L&amp;eft</source>
        <translation>左移列(&amp;E)</translation>
    </message>
    <message>
        <source>Move Column R&amp;ight</source>
        <translation>右移列(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Merge Cells</source>
        <translation>合并单元格(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Split Cell</source>
        <translation>拆分单元格(&amp;S)</translation>
    </message>
    <message>
        <source>Delete R&amp;ows</source>
        <translation>删除行(&amp;O)</translation>
    </message>
    <message>
        <source>Delete &amp;Columns</source>
        <translation>删除列(&amp;C)</translation>
    </message>
    <message>
        <source>Delete &amp;Table</source>
        <translation>删除表格(&amp;T)</translation>
    </message>
    <message>
        <source>Picture...</source>
        <translation>图片...</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>表格</translation>
    </message>
    <message>
        <source>&amp;Header Row</source>
        <translation>标题行(&amp;H)</translation>
    </message>
    <message>
        <source>That cannot be done with these cells.</source>
        <translation>无法对这些单元格执行此操作。</translation>
    </message>
</context>
<context>
    <name>CPagePictures</name>
    <message>
        <source>Save the page first: addresses of pictures lead from its file.</source>
        <translation>请先保存网页：图片的地址以网页文件为起点。</translation>
    </message>
    <message>
        <source>The picture could not be copied: %1</source>
        <translation>无法复制图片：%1</translation>
    </message>
    <message>
        <source>The picture could not be stored: %1</source>
        <translation>无法存储图片：%1</translation>
    </message>
</context>
<context>
    <name>CPageSpelling</name>
    <message>
        <source>Misspelt words are marked.</source>
        <translation>标出拼写错误的单词。</translation>
    </message>
    <message>
        <source>Misspelt words are no longer marked.</source>
        <translation>不再标出拼写错误的单词。</translation>
    </message>
    <message>
        <source>No misspelt word follows.</source>
        <translation>后面没有拼写错误的单词。</translation>
    </message>
    <message>
        <source>There is no dictionary for this language.</source>
        <translation>没有此语言的词典。</translation>
    </message>
    <message>
        <source>The word could not be kept: %1</source>
        <translation>无法保存该单词：%1</translation>
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
        <translation>标题 1</translation>
    </message>
    <message>
        <source>Heading 2</source>
        <translation>标题 2</translation>
    </message>
    <message>
        <source>Heading 3</source>
        <translation>标题 3</translation>
    </message>
    <message>
        <source>Heading 4</source>
        <translation>标题 4</translation>
    </message>
    <message>
        <source>Heading 5</source>
        <translation>标题 5</translation>
    </message>
    <message>
        <source>Heading 6</source>
        <translation>标题 6</translation>
    </message>
    <message>
        <source>Preformatted</source>
        <translation>预设格式</translation>
    </message>
    <message>
        <source>Quotation</source>
        <translation>引用</translation>
    </message>
    <message>
        <source>Bulleted List</source>
        <translation>项目符号列表</translation>
    </message>
    <message>
        <source>Numbered List</source>
        <translation>编号列表</translation>
    </message>
    <message>
        <source>Outdent</source>
        <translation>减少缩进</translation>
    </message>
    <message>
        <source>Indent</source>
        <translation>增加缩进</translation>
    </message>
    <message>
        <source>Align Left</source>
        <translation>左对齐</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>居中</translation>
    </message>
    <message>
        <source>Align Right</source>
        <translation>右对齐</translation>
    </message>
    <message>
        <source>Justify</source>
        <translation>两端对齐</translation>
    </message>
    <message>
        <source>Strikethrough</source>
        <translation>删除线</translation>
    </message>
    <message>
        <source>Superscript</source>
        <translation>上标</translation>
    </message>
    <message>
        <source>Subscript</source>
        <translation>下标</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>代码</translation>
    </message>
    <message>
        <source>Paragraph Style</source>
        <translation>段落样式</translation>
    </message>
    <message>
        <source>Clear Formatting</source>
        <translation>清除格式</translation>
    </message>
    <message>
        <source>Paste as Plain Text</source>
        <translation>粘贴为纯文本</translation>
    </message>
    <message>
        <source>Link...</source>
        <translation>链接...</translation>
    </message>
    <message>
        <source>Remove Link</source>
        <translation>移除链接</translation>
    </message>
    <message>
        <source>Horizontal Line</source>
        <translation>水平线</translation>
    </message>
    <message>
        <source>Special Characters...</source>
        <translation>特殊字符...</translation>
    </message>
    <message>
        <source>Page Properties...</source>
        <translation>页面属性...</translation>
    </message>
    <message>
        <source>Headings and Anchors</source>
        <translation>标题和锚点</translation>
    </message>
    <message>
        <source>%1 (of a part)</source>
        <translation>%1（部分）</translation>
    </message>
    <message>
        <source>No headings</source>
        <translation>没有标题</translation>
    </message>
</context>
<context>
    <name>CPastTabs</name>
    <message>
        <source>No closed tab is left to open again.</source>
        <translation>没有可以重新打开的已关闭标签页。</translation>
    </message>
    <message>
        <source>No longer there: %1</source>
        <translation>已不存在: %1</translation>
    </message>
</context>
<context>
    <name>CPreviewWidget</name>
    <message>
        <source>Open position of file</source>
        <translation>打开文件所在位置</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Trying out whether this file can be shown...</source>
        <translation>正在试验是否可以显示此文件...</translation>
    </message>
    <message>
        <source>Show the page anyway</source>
        <translation>仍然显示页面</translation>
    </message>
    <message>
        <source>Show the drawing anyway</source>
        <translation>仍然显示图形</translation>
    </message>
    <message>
        <source>This file is not drawn here: that takes too long.</source>
        <translation>此处不绘制该文件：绘制耗时过长。</translation>
    </message>
    <message>
        <source>This file is not drawn here: that takes too much memory.</source>
        <translation>此处不绘制该文件：绘制占用内存过多。</translation>
    </message>
    <message>
        <source>This file is not drawn here: it would crash the program.</source>
        <translation>此处不绘制该文件：绘制会使程序出错。</translation>
    </message>
</context>
<context>
    <name>CReadTexts</name>
    <message>
        <source>It is no ordinary file.</source>
        <translation>这不是普通文件。</translation>
    </message>
    <message>
        <source>The file is too large.</source>
        <translation>文件太大。</translation>
    </message>
    <message>
        <source>There is not enough memory for the file.</source>
        <translation>内存不足，无法打开该文件。</translation>
    </message>
    <message>
        <source>Another program keeps writing to the file.</source>
        <translation>另一个程序正在不断写入该文件。</translation>
    </message>
    <message>
        <source>Reading was stopped.</source>
        <translation>读取已停止。</translation>
    </message>
</context>
<context>
    <name>CRecentMenu</name>
    <message>
        <source>(empty)</source>
        <translation>（空）</translation>
    </message>
</context>
<context>
    <name>CRecovery</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>Left unsaved when the program last ended: %1</source>
        <translation>程序上次结束时未保存：%1</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>A save of %1 was cut off when the program last ended: the file may hold parts of both versions.</source>
        <translation>程序上次结束时对 %1 的保存被中断：文件可能混有新旧两个版本的内容。</translation>
    </message>
    <message>
        <source>Put the old version back</source>
        <translation>恢复旧版本</translation>
    </message>
    <message>
        <source>Leave the file as it is</source>
        <translation>保持文件不变</translation>
    </message>
    <message>
        <source>%1 was closed, and its file is no longer there.</source>
        <translation>%1 已关闭，而它的文件已不存在。</translation>
    </message>
    <message>
        <source>%1 was closed with unsaved changes.</source>
        <translation>%1 已关闭，但有未保存的更改。</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>还原</translation>
    </message>
    <message>
        <source>Unsaved changes of %1 were replaced.</source>
        <translation>%1 的未保存更改已被替换。</translation>
    </message>
    <message>
        <source>The draft of %1 could not be read.</source>
        <translation>无法读取 %1 的草稿。</translation>
    </message>
    <message>
        <source>Unsaved text cannot be kept as drafts: %1</source>
        <translation>无法将未保存的文本存为草稿：%1</translation>
    </message>
    <message>
        <source>%1 documents were left unsaved when the program last ended:</source>
        <translation>程序上次结束时有 %1 个文档未保存：</translation>
    </message>
</context>
<context>
    <name>CSearch</name>
    <message>
        <source>Replacing</source>
        <translation>正在替换</translation>
    </message>
</context>
<context>
    <name>CSidePanels</name>
    <message>
        <source>Listing the folder</source>
        <translation>正在列出文件夹</translation>
    </message>
</context>
<context>
    <name>CStartPanel</name>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>or drop files here</source>
        <translation>或将文件拖放到此处</translation>
    </message>
    <message>
        <source>Reopen what was open last time</source>
        <translation>重新打开上次打开的文件</translation>
    </message>
    <message>
        <source>Recent files</source>
        <translation>最近的文件</translation>
    </message>
</context>
<context>
    <name>CStatusLabels</name>
    <message>
        <source>Col, Row and Selected</source>
        <translation>列、行与选中字符数</translation>
    </message>
    <message>
        <source>Program Language</source>
        <translation>编程语言</translation>
    </message>
    <message>
        <source>Return Format</source>
        <translation>换行符格式</translation>
    </message>
    <message>
        <source>Text Codec</source>
        <translation>文本编码</translation>
    </message>
</context>
<context>
    <name>CSuggestionMenu</name>
    <message>
        <source>Suggestions for &quot;%1&quot;</source>
        <translation>“%1”的建议</translation>
    </message>
    <message>
        <source>No suggestions</source>
        <translation>没有建议</translation>
    </message>
    <message>
        <source>Add to dictionary</source>
        <translation>添加到词典</translation>
    </message>
</context>
<context>
    <name>CTabListButton</name>
    <message>
        <source>List of all tabs (%1)</source>
        <translation>所有标签页的列表 (%1)</translation>
    </message>
    <message>
        <source>List of all tabs</source>
        <translation>所有标签页的列表</translation>
    </message>
</context>
<context>
    <name>CTableChooser</name>
    <message>
        <source>New table: %1 rows, %2 columns</source>
        <translation>新表格：%1 行，%2 列</translation>
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
        <translation>未选择文件夹</translation>
    </message>
    <message>
        <source>Please select a folder on Folder Browser.</source>
        <translation>请在文件夹浏览器中选择一个文件夹。</translation>
    </message>
</context>
<context>
    <name>CWidgetFavoriteFolder</name>
    <message>
        <source>Open position of file/folder</source>
        <translation>打开文件/文件夹所在位置</translation>
    </message>
    <message>
        <source>Main Folder List</source>
        <translation>常用文件夹</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>No selected folder</source>
        <translation>未选择文件夹</translation>
    </message>
    <message>
        <source>Please select a favor folder on Main Folder List to remove.</source>
        <translation>请在常用文件夹列表中选择要移除的文件夹。</translation>
    </message>
</context>
<context>
    <name>CWidgetFileList</name>
    <message>
        <source>Open position of file/folder</source>
        <translation>打开文件/文件夹所在位置</translation>
    </message>
    <message>
        <source>Open file/folder by default application</source>
        <translation>用默认程序打开文件/文件夹</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Upper</source>
        <translation>上一级</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Folder Browser</source>
        <translation>文件夹浏览器</translation>
    </message>
    <message>
        <source>Select a folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>No file or folder is selected.</source>
        <translation>未选择文件或文件夹。</translation>
    </message>
    <message>
        <source>The listing was stopped; not all of the folder is shown.</source>
        <translation>列出已停止，未显示文件夹的全部内容。</translation>
    </message>
</context>
<context>
    <name>CWidgetFindInFiles</name>
    <message>
        <source>Searching</source>
        <translation>正在搜索</translation>
    </message>
    <message>
        <source>Find what</source>
        <translation>查找内容</translation>
    </message>
    <message>
        <source>Replace with</source>
        <translation>替换为</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>File names</source>
        <translation>文件名</translation>
    </message>
    <message>
        <source>Patterns separated by semicolons; with ! before it, a pattern leaves files out. Empty: all files.</source>
        <translation>以分号分隔的模式；前面加 ! 的模式表示排除文件。留空：所有文件。</translation>
    </message>
    <message>
        <source>Replace with:</source>
        <translation>替换为：</translation>
    </message>
    <message>
        <source>Match case</source>
        <translation>区分大小写</translation>
    </message>
    <message>
        <source>Match whole word only</source>
        <translation>全字匹配</translation>
    </message>
    <message>
        <source>Use regular expression</source>
        <translation>使用正则表达式</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Find what:</source>
        <translation>查找内容：</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>文件夹：</translation>
    </message>
    <message>
        <source>File names:</source>
        <translation>文件名：</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>匹配项</translation>
    </message>
    <message>
        <source>There is no text to search for.</source>
        <translation>没有要查找的文本。</translation>
    </message>
    <message>
        <source>There is no such folder.</source>
        <translation>没有这个文件夹。</translation>
    </message>
    <message>
        <source>This is no regular expression: %1</source>
        <translation>这不是正则表达式：%1</translation>
    </message>
    <message>
        <source>Matches: %1, in %2 of %3 files.</source>
        <translation>匹配：%1 处，位于 %3 个文件中的 %2 个。</translation>
    </message>
    <message>
        <source>Left out: %1 binary, %2 huge, %3 unreadable.</source>
        <translation>已跳过：二进制 %1 个，过大 %2 个，无法读取 %3 个。</translation>
    </message>
    <message>
        <source>There are more.</source>
        <translation>还有更多。</translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>已取消。</translation>
    </message>
    <message>
        <source>Nothing was replaced.</source>
        <translation>未替换任何内容。</translation>
    </message>
    <message>
        <source>No match is checked.</source>
        <translation>未勾选任何匹配项。</translation>
    </message>
    <message>
        <source>Files replaced: %1.</source>
        <translation>已替换的文件：%1 个。</translation>
    </message>
    <message>
        <source>Left as they were, with the reason: %1.</source>
        <translation>保持原样（附原因）：%1 个。</translation>
    </message>
    <message>
        <source>Select a folder</source>
        <translation>选择文件夹</translation>
    </message>
    <message>
        <source>Replacing in files</source>
        <translation>正在文件中替换</translation>
    </message>
    <message>
        <source>Searching in files</source>
        <translation>正在文件中搜索</translation>
    </message>
</context>
<context>
    <name>CWorkProgress</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Stop this (Esc)</source>
        <translation>停止（Esc）</translation>
    </message>
    <message numerus="yes">
        <source>%1 (and %n more)</source>
        <translation>
            <numerusform>%1（另有 %n 项）</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>打开...</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Text Codec</source>
        <translation>文本编码</translation>
    </message>
    <message>
        <source>Return Format</source>
        <translation>换行符格式</translation>
    </message>
    <message>
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Main ToolBar</source>
        <translation>主工具栏</translation>
    </message>
    <message>
        <source>HTML ToolBar</source>
        <translation>HTML 工具栏</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>另存为...</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>全部保存</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Bold</source>
        <translation>粗体</translation>
    </message>
    <message>
        <source>Italic</source>
        <translation>斜体</translation>
    </message>
    <message>
        <source>Underline</source>
        <translation>下划线</translation>
    </message>
    <message>
        <source>Left to Right</source>
        <translation>从左到右</translation>
    </message>
    <message>
        <source>Right to Left</source>
        <translation>从右到左</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>New HTML</source>
        <translation>新建 HTML</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>查找...</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>New Text</source>
        <translation>新建文本</translation>
    </message>
    <message>
        <source>Unknown Format</source>
        <translation>未知格式</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>SwapHtml</source>
        <translation>切换 HTML 视图</translation>
    </message>
    <message>
        <source>Switch html and source</source>
        <translation>在 HTML 页面与源代码之间切换</translation>
    </message>
    <message>
        <source>Verify Valid</source>
        <translation>验证有效性</translation>
    </message>
    <message>
        <source>Verify Valid of content</source>
        <translation>验证内容的有效性</translation>
    </message>
    <message>
        <source>Formatting</source>
        <translation>格式化</translation>
    </message>
    <message>
        <source>Line Wrap</source>
        <translation>自动换行</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>查找下一个</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>查找上一个</translation>
    </message>
    <message>
        <source>Toggle Comment</source>
        <translation>切换注释</translation>
    </message>
    <message>
        <source>Color Dialog</source>
        <translation>选择颜色</translation>
    </message>
    <message>
        <source>Go to Line...</source>
        <translation>转到行...</translation>
    </message>
    <message>
        <source>Replace...</source>
        <translation>替换...</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>替换</translation>
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
        <translation>打开文件所在位置</translation>
    </message>
    <message>
        <source>About %1</source>
        <translation>关于 %1</translation>
    </message>
    <message>
        <source>Made by the Quillan developers.</source>
        <translation>由 Quillan 开发者制作。</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>新文件</translation>
    </message>
    <message>
        <source>Fail to open file</source>
        <translation>打开文件失败</translation>
    </message>
    <message>
        <source>Fail to open file(%1).</source>
        <translation>打开文件(%1)失败。</translation>
    </message>
    <message>
        <source>(Untitled)</source>
        <translation>(无标题)</translation>
    </message>
    <message>
        <source>The file is read-only.</source>
        <translation>该文件为只读。</translation>
    </message>
    <message>
        <source>File Modified</source>
        <translation>文件已修改</translation>
    </message>
    <message>
        <source>Are you sure to refresh and discard the modification?</source>
        <translation>确定要重新加载并放弃所做的修改吗？</translation>
    </message>
    <message>
        <source>Page modified</source>
        <translation>页面已修改</translation>
    </message>
    <message>
        <source>File modified</source>
        <translation>文件已修改</translation>
    </message>
    <message>
        <source>Do you save the modified page?</source>
        <translation>是否保存已修改的页面？</translation>
    </message>
    <message>
        <source>Do you save the modified file?</source>
        <translation>是否保存已修改的文件？</translation>
    </message>
    <message>
        <source>The format of the content is good.</source>
        <translation>内容格式正确。</translation>
    </message>
    <message>
        <source>Open files</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Web file (*.html *.htm *.css *.js); All files(*.*)</source>
        <translation>Web 文件 (*.html *.htm *.css *.js); 所有文件(*.*)</translation>
    </message>
    <message>
        <source>Fail to save file</source>
        <translation>保存文件失败</translation>
    </message>
    <message>
        <source>Cannot open file(%1).</source>
        <translation>无法打开文件(%1)。</translation>
    </message>
    <message>
        <source>Save file</source>
        <translation>保存文件</translation>
    </message>
    <message>
        <source>All files(*.*)</source>
        <translation>所有文件(*.*)</translation>
    </message>
    <message>
        <source>Cannot open file&quot;%1&quot;.</source>
        <translation>无法打开文件“%1”。</translation>
    </message>
    <message>
        <source>Unknown Language</source>
        <translation>未知语言</translation>
    </message>
    <message>
        <source>Switch to html source edit</source>
        <translation>切换到 HTML 源代码编辑</translation>
    </message>
    <message>
        <source>Switch to html page edit</source>
        <translation>切换到 HTML 页面编辑</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Folder Browser</source>
        <translation>文件夹浏览器</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>The file is not all text: not all of it can be shown.</source>
        <translation>该文件并非纯文本：无法全部显示。</translation>
    </message>
    <message>
        <source>Unsaved text is kept as drafts again.</source>
        <translation>未保存的文本又可以存为草稿了。</translation>
    </message>
    <message>
        <source>Unsaved text cannot be kept as drafts: %1</source>
        <translation>无法将未保存的文本存为草稿：%1</translation>
    </message>
    <message>
        <source>Files opened from elsewhere get a window of their own: the system&apos;s mailbox for them cannot be used.</source>
        <translation>从别处打开的文件将使用单独的窗口：无法使用系统为其提供的邮箱。</translation>
    </message>
    <message>
        <source>Show the page anyway</source>
        <translation>仍然显示页面</translation>
    </message>
    <message>
        <source>Show the picture anyway</source>
        <translation>仍然显示图片</translation>
    </message>
    <message>
        <source>The encoding is a guess: %1. Format, Text Codec reads the file in another.</source>
        <translation>编码是推测的：%1。可在“格式”的“文本编码”中改用其他编码读取。</translation>
    </message>
    <message>
        <source>There is no tab %1.</source>
        <translation>没有标签页 %1。</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>%1 is %2. Open it anyway?</source>
        <translation>%1 的大小为 %2。仍要打开吗？</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>This build cannot show pages: this is the source of %1.</source>
        <translation>此版本无法显示网页：这是 %1 的源代码。</translation>
    </message>
    <message>
        <source>%1 crashed the program: this is its source.</source>
        <translation>程序在加载 %1 时意外结束：这里显示其源代码。</translation>
    </message>
    <message>
        <source>Showing %1 could crash the program, because %2: this is its source.</source>
        <translation>显示 %1 可能使程序结束（%2）：这里显示其源代码。</translation>
    </message>
    <message>
        <source>%1 is not opened: it crashed the program.</source>
        <translation>未打开 %1：程序在加载它时意外结束。</translation>
    </message>
    <message>
        <source>The shown page is not the document&apos;s file: Save As keeps it.</source>
        <translation>这不是该文档文件的页面：可用“另存为”保存。</translation>
    </message>
</context>
<context>
    <name>QWebView</name>
    <message>
        <source>This build cannot show pages, only their source.</source>
        <translation>此版本无法显示网页，只能显示其源代码。</translation>
    </message>
</context>
<context>
    <name>XmlGuard</name>
    <message>
        <source>elements nest too deeply</source>
        <translation>元素嵌套过深</translation>
    </message>
    <message>
        <source>declarations nest too deeply</source>
        <translation>声明嵌套过深</translation>
    </message>
    <message>
        <source>entities expand to too much text</source>
        <translation>实体展开后的文本过长</translation>
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
