<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ItemNaming</name>
    <message>
        <source>The name cannot be empty</source>
        <translation>名称不能为空</translation>
    </message>
    <message>
        <source>The name is too long, please limit it to 32 characters</source>
        <translation>名称过长，请限制在 32 个字符以内</translation>
    </message>
    <message>
        <source>The name is illegal. the name can only consist of numbers, letters, and underscores, and it must start with a letter</source>
        <translation>名称不合法。名称只能由数字、字母和下划线组成，且必须以字母开头</translation>
    </message>
    <message>
        <source>Name can not be duplicated within the project</source>
        <translation>项目内的名称不能重复</translation>
    </message>
    <message>
        <source>The input name id not available</source>
        <translation>输入的名称不可用</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Please input new name:</source>
        <translation>请输入新名称：</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
</context>
<context>
    <name>PropertyValues</name>
    <message>
        <source>Horizontal Policy</source>
        <translation>水平策略</translation>
    </message>
    <message>
        <source>Vertical Policy</source>
        <translation>垂直策略</translation>
    </message>
    <message>
        <source>Horizontal Stretch</source>
        <translation>水平伸展</translation>
    </message>
    <message>
        <source>Vertical Stretch</source>
        <translation>垂直伸展</translation>
    </message>
    <message>
        <source>True</source>
        <translation>是</translation>
    </message>
    <message>
        <source>False</source>
        <translation>否</translation>
    </message>
    <message>
        <source>%1, %2 pt</source>
        <translation>%1，%2 磅</translation>
    </message>
    <message>
        <source>%1, %2 px</source>
        <translation>%1，%2 像素</translation>
    </message>
    <message>
        <source>[1 item]</source>
        <translation>[1 项]</translation>
    </message>
    <message>
        <source>[%1 items]</source>
        <translation>[%1 项]</translation>
    </message>
    <message>
        <source>{1 entry}</source>
        <translation>{1 个条目}</translation>
    </message>
    <message>
        <source>{%1 entries}</source>
        <translation>{%1 个条目}</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::AppBox</name>
    <message>
        <source>No apps installed</source>
        <translation>未安装任何应用</translation>
    </message>
    <message>
        <source>The app list cannot be read</source>
        <translation>无法读取应用列表</translation>
    </message>
    <message>
        <source>The app list %1 cannot be read, so no app can be added to it.</source>
        <translation>无法读取应用列表 %1，因此无法向其中添加应用。</translation>
    </message>
    <message>
        <source>This folder holds no app that can be installed: %1.</source>
        <translation>此文件夹中没有可安装的应用：%1。</translation>
    </message>
    <message>
        <source>The app in %1 is installed already.</source>
        <translation>%1 中的应用已经安装。</translation>
    </message>
    <message>
        <source>The app list %1 could not be written: %2.</source>
        <translation>无法写入应用列表 %1：%2。</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>The app %1 could not be started.</source>
        <translation>无法启动应用 %1。</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::AppInstallDialog</name>
    <message>
        <source>Install App</source>
        <translation>安装应用</translation>
    </message>
    <message>
        <source>Folder that holds the app and its app.ini</source>
        <translation>包含应用及其 app.ini 的文件夹</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>App</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Folder:</source>
        <translation>文件夹：</translation>
    </message>
    <message>
        <source>Install</source>
        <translation>安装</translation>
    </message>
    <message>
        <source>Choose the app&apos;s folder</source>
        <translation>选择应用所在的文件夹</translation>
    </message>
    <message>
        <source>No app chosen</source>
        <translation>未选择应用</translation>
    </message>
    <message>
        <source>This folder holds no app that can be installed: %1.</source>
        <translation>此文件夹中没有可安装的应用：%1。</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Assistant</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
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
        <source>Home</source>
        <translation>主页</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>Look for</source>
        <translation>查找关键字</translation>
    </message>
    <message>
        <source>Index</source>
        <translation>索引</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>No help is installed.</source>
        <translation>未安装帮助。</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Help is not available&lt;/h2&gt;&lt;p&gt;The help collection %1 is missing or damaged. Reinstalling the application restores it.&lt;/p&gt;</source>
        <translation>&lt;h2&gt;帮助不可用&lt;/h2&gt;&lt;p&gt;帮助集 %1 缺失或已损坏。重新安装应用程序即可恢复。&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::DialogAddNew</name>
    <message>
        <source>Add New Item</source>
        <translation>添加新项</translation>
    </message>
    <message>
        <source>Select Item Type:</source>
        <translation>选择项类型：</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::DialogAddNewBase</name>
    <message>
        <source>Name:</source>
        <translation>名称：</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>New Item</source>
        <translation>新建项</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::DialogAddNewProject</name>
    <message>
        <source>Add New Project</source>
        <translation>添加新项目</translation>
    </message>
    <message>
        <source>Select Project Type:</source>
        <translation>选择项目类型：</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>位置：</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Choose a location for the project</source>
        <translation>选择项目的位置</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::DialogAddNewProjectItem</name>
    <message>
        <source>Add New Project Item</source>
        <translation>添加新项目项</translation>
    </message>
    <message>
        <source>Select Project Item Type:</source>
        <translation>选择项目项类型：</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Environment</name>
    <message>
        <source>Main</source>
        <translation>主页</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>绘图</translation>
    </message>
    <message>
        <source>Content</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>App</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Tidekit Script</source>
        <translation>Tidekit 脚本</translation>
    </message>
    <message>
        <source>Tidekit Variant</source>
        <translation>Tidekit 变量</translation>
    </message>
    <message>
        <source>Flowdeck Diagram</source>
        <translation>Flowdeck 框图</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>New
Script</source>
        <translation>新建
脚本</translation>
    </message>
    <message>
        <source>New a script file</source>
        <translation>新建脚本文件</translation>
    </message>
    <message>
        <source>New Script File</source>
        <translation>新建脚本文件</translation>
    </message>
    <message>
        <source>New
RtScript</source>
        <translation>新建
实时脚本</translation>
    </message>
    <message>
        <source>New a realtime script file</source>
        <translation>新建实时脚本文件</translation>
    </message>
    <message>
        <source>New Realtime Script File</source>
        <translation>新建实时脚本文件</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新建</translation>
    </message>
    <message>
        <source>Add a new project or file</source>
        <translation>新建项目或文件</translation>
    </message>
    <message>
        <source>New Project or File</source>
        <translation>新建项目或文件</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Add a new project to the solution</source>
        <translation>向解决方案中添加新项目</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>新建项目</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Oepn a exist solution, project or file</source>
        <translation>打开已有的解决方案、项目或文件</translation>
    </message>
    <message>
        <source>Open Solution, Project or File</source>
        <translation>打开解决方案、项目或文件</translation>
    </message>
    <message>
        <source>Open a exist project to the solution</source>
        <translation>将已有项目打开到解决方案中</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>打开项目</translation>
    </message>
    <message>
        <source>Import other software file</source>
        <translation>导入其他软件的文件</translation>
    </message>
    <message>
        <source>import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Find File</source>
        <translation>查找文件</translation>
    </message>
    <message>
        <source>Find Information</source>
        <translation>查找信息</translation>
    </message>
    <message>
        <source>Search for information from files</source>
        <translation>在文件中搜索信息</translation>
    </message>
    <message>
        <source>File Compare</source>
        <translation>文件比较</translation>
    </message>
    <message>
        <source>Compare Model File</source>
        <translation>比较模型文件</translation>
    </message>
    <message>
        <source>Compare the differences between two models</source>
        <translation>比较两个模型之间的差异</translation>
    </message>
    <message>
        <source>Variant</source>
        <translation>变量</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>环境</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message>
        <source>Adjust desktop layout</source>
        <translation>调整桌面布局</translation>
    </message>
    <message>
        <source>Adjust Desktop Layout</source>
        <translation>调整桌面布局</translation>
    </message>
    <message>
        <source>options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Specify preset items</source>
        <translation>设置预设项</translation>
    </message>
    <message>
        <source>Specify Preset Items</source>
        <translation>设置预设项</translation>
    </message>
    <message>
        <source>Setup Path</source>
        <translation>设置路径</translation>
    </message>
    <message>
        <source>Change global search path</source>
        <translation>更改全局搜索路径</translation>
    </message>
    <message>
        <source>Change Path</source>
        <translation>更改路径</translation>
    </message>
    <message>
        <source>Parallel</source>
        <translation>并行</translation>
    </message>
    <message>
        <source>Parallel Computing Options</source>
        <translation>并行计算选项</translation>
    </message>
    <message>
        <source>Parallel computing options</source>
        <translation>并行计算选项</translation>
    </message>
    <message>
        <source>View
Plugin</source>
        <translation>查看
插件</translation>
    </message>
    <message>
        <source>View all supported plugins</source>
        <translation>查看所有支持的插件</translation>
    </message>
    <message>
        <source>View Plugin</source>
        <translation>查看插件</translation>
    </message>
    <message>
        <source>ResourceGroup</source>
        <translation>资源</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>(F1)</source>
        <translation>(F1)</translation>
    </message>
    <message>
        <source>View help documentation</source>
        <translation>查看帮助文档</translation>
    </message>
    <message>
        <source>document</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Help documentation</source>
        <translation>帮助文档</translation>
    </message>
    <message>
        <source>Help Documentation</source>
        <translation>帮助文档</translation>
    </message>
    <message>
        <source>guide</source>
        <translation>指南</translation>
    </message>
    <message>
        <source>Example Projects</source>
        <translation>示例项目</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>示例</translation>
    </message>
    <message>
        <source>Terms of use</source>
        <translation>使用条款</translation>
    </message>
    <message>
        <source>Terms of Use</source>
        <translation>使用条款</translation>
    </message>
    <message>
        <source>About of Velmora</source>
        <translation>关于 Velmora</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Pack</source>
        <translation>应用包</translation>
    </message>
    <message>
        <source>Install App</source>
        <translation>安装应用</translation>
    </message>
    <message>
        <source>Install
App</source>
        <translation>安装
应用</translation>
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
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Outline</source>
        <translation>大纲</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>Velmora can only execute one project, please remove the currentproject before creating a new one.</source>
        <translation>Velmora 只能运行一个项目，请先移除当前项目，再新建项目。</translation>
    </message>
    <message>
        <source>Project files(*.qprj)</source>
        <translation>项目文件(*.qprj)</translation>
    </message>
    <message>
        <source>Infomation</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>Project &quot;</source>
        <translation>项目“</translation>
    </message>
    <message>
        <source>&quot; has been opened!</source>
        <translation>”已经打开！</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ExampleDialog</name>
    <message>
        <source>The example&apos;s folders are nested too deeply.</source>
        <translation>示例的文件夹嵌套过深。</translation>
    </message>
    <message>
        <source>The folder %1 could not be created.</source>
        <translation>无法创建文件夹 %1。</translation>
    </message>
    <message>
        <source>The file %1 could not be copied.</source>
        <translation>无法复制文件 %1。</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>示例</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>Search in examples</source>
        <translation>在示例中搜索</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>An example cannot be copied into its own folder.</source>
        <translation>不能将示例复制到它自己的文件夹中。</translation>
    </message>
    <message>
        <source>The folder %1 exists already; choose another place for the example.</source>
        <translation>文件夹 %1 已存在，请为示例另选位置。</translation>
    </message>
    <message>
        <source>Choose a folder for the example</source>
        <translation>为示例选择文件夹</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>No example is selected.</source>
        <translation>未选择示例。</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::GuideMenu</name>
    <message>
        <source>guide</source>
        <translation>指南</translation>
    </message>
    <message>
        <source>No guides installed</source>
        <translation>未安装任何指南</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Internal::ColorEditor</name>
    <message>
        <source>Choose a colour</source>
        <translation>选择颜色</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Internal::FontEditor</name>
    <message>
        <source> pt</source>
        <translation> 磅</translation>
    </message>
    <message>
        <source>Choose a font</source>
        <translation>选择字体</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Internal::PointEditor</name>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Internal::RectEditor</name>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>W</source>
        <translation>宽</translation>
    </message>
    <message>
        <source>H</source>
        <translation>高</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::Internal::SizeEditor</name>
    <message>
        <source>W</source>
        <translation>宽</translation>
    </message>
    <message>
        <source>H</source>
        <translation>高</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ItemType</name>
    <message>
        <source>Add Ne&amp;w Item...</source>
        <translation>添加新项(&amp;W)...</translation>
    </message>
    <message>
        <source>Add New</source>
        <translation>添加新项</translation>
    </message>
    <message>
        <source>Add a new item to this item</source>
        <translation>向此项中添加新项</translation>
    </message>
    <message>
        <source>Add Existin&amp;g Item...</source>
        <translation>添加现有项(&amp;G)...</translation>
    </message>
    <message>
        <source>Add Existing</source>
        <translation>添加现有项</translation>
    </message>
    <message>
        <source>Add an existing item to this item</source>
        <translation>向此项中添加现有项</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Edit this item</source>
        <translation>编辑此项</translation>
    </message>
    <message>
        <source>&amp;Edit with...</source>
        <translation>编辑方式(&amp;E)...</translation>
    </message>
    <message>
        <source>Edit with</source>
        <translation>编辑方式</translation>
    </message>
    <message>
        <source>Edit this item with one of the available editor</source>
        <translation>使用可用的编辑器之一编辑此项</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Cut the item to the clipboard</source>
        <translation>将此项剪切到剪贴板</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>复制(&amp;Y)</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy the item to the clipboard</source>
        <translation>将此项复制到剪贴板</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Paste from the clipboard to the item</source>
        <translation>将剪贴板中的内容粘贴到此项</translation>
    </message>
    <message>
        <source>Remo&amp;ve</source>
        <translation>移除(&amp;V)</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Remove the item</source>
        <translation>移除此项</translation>
    </message>
    <message>
        <source>Rena&amp;me</source>
        <translation>重命名(&amp;M)</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Rename the item</source>
        <translation>重命名此项</translation>
    </message>
    <message>
        <source>P&amp;roperties</source>
        <translation>属性(&amp;R)</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Show the property window</source>
        <translation>显示属性窗口</translation>
    </message>
    <message>
        <source>Open A Project File</source>
        <translation>打开项目文件</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ItemTypeFile</name>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open from file</source>
        <translation>从文件打开</translation>
    </message>
    <message>
        <source>&amp;Save _name_</source>
        <translation>保存 _name_(&amp;S)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save to file</source>
        <translation>保存到文件</translation>
    </message>
    <message>
        <source>Save _name_ &amp;As...</source>
        <translation>将 _name_ 另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Save this item to file with a different name</source>
        <translation>以其他名称将此项保存到文件</translation>
    </message>
    <message>
        <source>&amp;Close _name_</source>
        <translation>关闭 _name_(&amp;C)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close the selected item(s)</source>
        <translation>关闭所选项</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>New File</source>
        <translation>新建文件</translation>
    </message>
    <message>
        <source>Choose a file to open from</source>
        <translation>选择要打开的文件</translation>
    </message>
    <message>
        <source>Choose a file to save to</source>
        <translation>选择要保存到的文件</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ItemTypeFolder</name>
    <message>
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>新建文件夹</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ItemTypeSolution</name>
    <message>
        <source>&amp;New Project...</source>
        <translation>新建项目(&amp;N)...</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>新建项目</translation>
    </message>
    <message>
        <source>Add a new project</source>
        <translation>添加新项目</translation>
    </message>
    <message>
        <source>&amp;Existing Project...</source>
        <translation>现有项目(&amp;E)...</translation>
    </message>
    <message>
        <source>Existing Project</source>
        <translation>现有项目</translation>
    </message>
    <message>
        <source>Open an existing project</source>
        <translation>打开现有项目</translation>
    </message>
    <message>
        <source>Solution</source>
        <translation>解决方案</translation>
    </message>
    <message>
        <source>Solution Files (*.sln-qel)</source>
        <translation>解决方案文件 (*.sln-qel)</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::LogoInfo</name>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::MultipleWindow</name>
    <message>
        <source>Start Page</source>
        <translation>起始页</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>正在打开 %1...</translation>
    </message>
    <message>
        <source>No editor can open %1</source>
        <translation>没有可以打开 %1 的编辑器</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::OptionPageGeneral</name>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>A change of language takes effect the next time the application starts.</source>
        <translation>更改语言将在下次启动应用程序时生效。</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Interface language:</source>
        <translation>界面语言：</translation>
    </message>
    <message>
        <source>Show the quick-start window at start-up</source>
        <translation>启动时显示快速入门窗口</translation>
    </message>
    <message>
        <source>Reopen the last solution at start-up</source>
        <translation>启动时重新打开上次的解决方案</translation>
    </message>
    <message>
        <source>Start-up</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>环境</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::OptionsDialog</name>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>The options could not be saved to %1.</source>
        <translation>无法将选项保存到 %1。</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::OutlineWindow</name>
    <message>
        <source>Outline</source>
        <translation>大纲</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>No outline</source>
        <translation>无大纲</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::OutputTab</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Clear the content of this output tab</source>
        <translation>清除此输出标签页的内容</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::OutputWindow</name>
    <message>
        <source>&amp;Close Tab</source>
        <translation>关闭标签页(&amp;C)</translation>
    </message>
    <message>
        <source>Close Tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Close the output tab</source>
        <translation>关闭此输出标签页</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ProjectDelegate</name>
    <message>
        <source>Error</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>The name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source> is no available. It may be due to a duplicate name or an invalid name.</source>
        <translation> 不可用。可能是名称重复或名称无效。</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ProjectFrontPage</name>
    <message>
        <source>No solution has been opened yet.</source>
        <translation>尚未打开任何解决方案。</translation>
    </message>
    <message>
        <source>New Project</source>
        <translation>新建项目</translation>
    </message>
    <message>
        <source>Create a project in the current solution</source>
        <translation>在当前解决方案中创建项目</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>打开项目</translation>
    </message>
    <message>
        <source>Add an existing project file to the solution</source>
        <translation>将现有项目文件添加到解决方案中</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Recent Solutions</source>
        <translation>最近的解决方案</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>欢迎</translation>
    </message>
    <message>
        <source>Welcome to %1</source>
        <translation>欢迎使用 %1</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::PropertyModel</name>
    <message>
        <source>Property</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::PropertyWindow</name>
    <message>
        <source>No item selected</source>
        <translation>未选择任何项</translation>
    </message>
    <message>
        <source>&lt;b&gt;%1&lt;/b&gt; %2</source>
        <translation>&lt;b&gt;%1&lt;/b&gt; %2</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>属性</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::ProviderManager</name>
    <message>
        <source>Initializing %1...</source>
        <translation>正在初始化 %1...</translation>
    </message>
    <message>
        <source>Starting %1...</source>
        <translation>正在启动 %1...</translation>
    </message>
    <message>
        <source>Stopping %1...</source>
        <translation>正在停止 %1...</translation>
    </message>
    <message>
        <source>Unloading %1...</source>
        <translation>正在卸载 %1...</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::QelProviderManagerDialog</name>
    <message>
        <source>Primary</source>
        <translation>主要</translation>
    </message>
    <message>
        <source>Secondary</source>
        <translation>次要</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>正常</translation>
    </message>
    <message>
        <source>Disabled</source>
        <translation>已禁用</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>Provider Information</source>
        <translation>插件信息</translation>
    </message>
    <message>
        <source>Provider Name</source>
        <translation>插件名称</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>描述</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::QuickStartWindow</name>
    <message>
        <source>Quick Start</source>
        <translation>快速入门</translation>
    </message>
    <message>
        <source>Show at start-up</source>
        <translation>启动时显示</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::TermsOfUseDialog</name>
    <message>
        <source>Terms of Use</source>
        <translation>使用条款</translation>
    </message>
</context>
<context>
    <name>Velmora::Framework::TypeCompanionFile</name>
    <message>
        <source>Save multiple changes?</source>
        <translation>保存多处更改？</translation>
    </message>
    <message>
        <source>%1 unsaved files. Save all before closing?</source>
        <translation>有 %1 个文件未保存。关闭前是否全部保存？</translation>
    </message>
</context>
<context>
    <name>Velmora::Ribdock::AddressBar</name>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Up One Level</source>
        <translation>向上一级</translation>
    </message>
    <message>
        <source>Browse Folders</source>
        <translation>浏览文件夹</translation>
    </message>
    <message>
        <source>Folder Contents</source>
        <translation>文件夹内容</translation>
    </message>
</context>
<context>
    <name>Velmora::Ribdock::DockContainer</name>
    <message>
        <source>Left Panel</source>
        <translation>左侧面板</translation>
    </message>
    <message>
        <source>Right Panel</source>
        <translation>右侧面板</translation>
    </message>
    <message>
        <source>Bottom Panel</source>
        <translation>底部面板</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message>
        <source>Restore Default Layout</source>
        <translation>恢复默认布局</translation>
    </message>
</context>
<context>
    <name>Velmora::Ribdock::RibbonBar</name>
    <message>
        <source>Expand the Ribbon</source>
        <translation>展开功能区</translation>
    </message>
    <message>
        <source>Collapse the Ribbon</source>
        <translation>折叠功能区</translation>
    </message>
    <message>
        <source> (or double-click a tab)</source>
        <translation>（或双击选项卡）</translation>
    </message>
</context>
<context>
    <name>Velmora::Ribdock::RibbonGallery</name>
    <message>
        <source>Previous row</source>
        <translation>上一行</translation>
    </message>
    <message>
        <source>Next row</source>
        <translation>下一行</translation>
    </message>
    <message>
        <source>All items</source>
        <translation>全部项</translation>
    </message>
</context>
</TS>
