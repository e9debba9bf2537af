<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="vi">
<context>
    <name>zolt::Database</name>
    <message>
        <source>Không kết nối được với máy chủ cơ sở dữ liệu. Hãy kiểm tra mạng hoặc máy chủ rồi thử lại.</source>
        <translation>Cannot reach the database server. Check the network or the server, then try again.</translation>
    </message>
    <message>
        <source>Kết nối với máy chủ cơ sở dữ liệu vừa bị gián đoạn nên dữ liệu có thể chưa được ghi. Hãy kiểm tra rồi ghi lại.</source>
        <translation>The connection to the database server was just interrupted, so the data may not have been saved. Check, then save again.</translation>
    </message>
</context>
<context>
    <name>zolt::FmGrp</name>
    <message>
        <source>T&amp;hêm</source>
        <translation>&amp;Add</translation>
    </message>
    <message>
        <source>&amp;Huỷ thêm</source>
        <translation>&amp;Cancel adding</translation>
    </message>
    <message>
        <source>Save Error</source>
        <translation>Save Error</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Groups User</source>
        <translation>User Groups</translation>
    </message>
    <message>
        <source>Thông tin</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Tên nhóm</source>
        <translation>Group name</translation>
    </message>
    <message>
        <source>Diễn giải</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Nhóm người sử dụng</source>
        <translation>User groups</translation>
    </message>
    <message>
        <source>Danh sách</source>
        <translation>Members</translation>
    </message>
    <message>
        <source>Tên</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Người sử dụng của nhóm</source>
        <translation>Users of the group</translation>
    </message>
    <message>
        <source>&amp;Phân quyền</source>
        <translation>&amp;Rights</translation>
    </message>
    <message>
        <source>&amp;Ghi</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Xoá</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>&amp;Thoát</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>Không thể thêm dữ liệu vào bảng</source>
        <translation>Cannot add the data to the table</translation>
    </message>
    <message>
        <source>Nhóm này vừa được sửa hoặc xoá ở máy khác. Danh sách nhóm đã được đọc lại.</source>
        <translation>This group was just changed or deleted at another desk. The list of groups has been read again.</translation>
    </message>
    <message>
        <source>Không thể ghi dữ liệu vào bảng</source>
        <translation>Cannot save the data to the table</translation>
    </message>
    <message>
        <source>Bạn có chắc chắn xoá các nhóm đã chọn không?</source>
        <translation>Delete the selected groups?</translation>
    </message>
    <message numerus="yes">
        <source>%n danh mục đã bị xoá</source>
        <translation>
            <numerusform>%n group deleted</numerusform>
            <numerusform>%n groups deleted</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>zolt::FmSelHang</name>
    <message>
        <source>Danh mục hàng hoá</source>
        <translation>Catalogue</translation>
    </message>
    <message>
        <source>Tên danh mục</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Danh sách</source>
        <translation>List</translation>
    </message>
    <message>
        <source>&amp;Chọn</source>
        <translation>&amp;Choose</translation>
    </message>
    <message>
        <source>&amp;Thoát</source>
        <translation>E&amp;xit</translation>
    </message>
</context>
<context>
    <name>zolt::FrPms</name>
    <message>
        <source>Users Right</source>
        <translation>User Rights</translation>
    </message>
    <message>
        <source>Thực đơn</source>
        <translation>Menus</translation>
    </message>
    <message>
        <source>Mục được dùng của thực đơn</source>
        <translation>Menu items allowed</translation>
    </message>
    <message>
        <source>&amp;Ghi</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>&amp;Bỏ qua</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Tên nhóm là:</source>
        <translation>Group: </translation>
    </message>
    <message>
        <source>Nhóm này vừa bị xoá ở máy khác.</source>
        <translation>This group was just deleted at another desk.</translation>
    </message>
    <message>
        <source>Quyền của nhóm này vừa được thay đổi ở máy khác. Quyền hiện tại đã được hiện lại; hãy chọn lại rồi ghi.</source>
        <translation>The rights of this group were just changed at another desk. The current rights are shown again; choose again, then save.</translation>
    </message>
</context>
<context>
    <name>zolt::FrmFind</name>
    <message>
        <source>Search 1.1</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Nối</source>
        <translation>Join</translation>
    </message>
    <message>
        <source>Trường</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>So sánh</source>
        <translation>Comparison</translation>
    </message>
    <message>
        <source>Giá trị</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>%1 dòng %2</source>
        <translation>%1, row %2</translation>
    </message>
    <message>
        <source>Điều kiện</source>
        <translation>Condition</translation>
    </message>
    <message>
        <source>Đồ&amp;ng ý</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Th&amp;oát</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Hướng dẫn</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>và</source>
        <translation>and</translation>
    </message>
    <message>
        <source>hoặc</source>
        <translation>or</translation>
    </message>
    <message>
        <source>Dòng %1, %2: «%3» </source>
        <translation>Row %1, %2: «%3» </translation>
    </message>
    <message>
        <source>không phải là số. Số viết như trên màn hình: dấu chấm ngăn hàng nghìn, dấu phẩy trước phần lẻ (ví dụ 1.234.567,5)%1.</source>
        <translation>is not a number. Write numbers as the screen shows them: dots between thousands, a comma before the decimals (for example 1.234.567,5)%1.</translation>
    </message>
    <message>
        <source>; các số của danh sách cách nhau bằng dấu phẩy</source>
        <translation>; separate the numbers of a list with commas</translation>
    </message>
    <message>
        <source>không phải là một ngày có thật. Ngày viết ngày/tháng/năm, ví dụ 31/12/2026.</source>
        <translation>is not a real date. Write dates day/month/year, for example 31/12/2026.</translation>
    </message>
    <message>
        <source>Tìm kiếm</source>
        <translation>Search</translation>
    </message>
</context>
<context>
    <name>zolt::FrmInput</name>
    <message>
        <source>Người sử dụng đã tồn tại</source>
        <translation>The user already exists</translation>
    </message>
    <message>
        <source>Mật khẩu không hợp lệ</source>
        <translation>The password is not valid</translation>
    </message>
    <message>
        <source>User Infomation</source>
        <translation>User Information</translation>
    </message>
    <message>
        <source>User Information</source>
        <translation>User Information</translation>
    </message>
    <message>
        <source>Tên NSD</source>
        <translation>User name</translation>
    </message>
    <message>
        <source>Mật khẩu</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Xác nhận</source>
        <translation>Confirm</translation>
    </message>
    <message>
        <source>Giải thích</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Bộ phận</source>
        <translation>Group</translation>
    </message>
    <message>
        <source>Đồ&amp;ng ý</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Bỏ qua</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>&amp;Hướng dẫn</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>Chỉ đổi được mật khẩu của chính mình.</source>
        <translation>Only your own password can be changed.</translation>
    </message>
    <message>
        <source>Người sử dụng này vừa bị xoá ở máy khác.</source>
        <translation>This user was just deleted at another desk.</translation>
    </message>
    <message>
        <source>Người sử dụng này vừa được sửa ở máy khác. Thông tin hiện tại đã được hiện lại; hãy sửa lại rồi ghi.</source>
        <translation>This user was just changed at another desk. The current details are shown again; correct them, then save.</translation>
    </message>
    <message>
        <source>Thông tin của người sử dụng này chưa đọc được nên chưa ghi. Thông tin đã được đọc lại; hãy sửa lại rồi ghi.</source>
        <translation>This user&apos;s details could not be read, so nothing was saved. The details have been read again; correct them, then save.</translation>
    </message>
</context>
<context>
    <name>zolt::FrmLogon</name>
    <message>
        <source>Mật khẩu hoặc người sử dụng không hợp lệ </source>
        <translation>The user name or the password is not valid </translation>
    </message>
    <message>
        <source>Mật khẩu hoặc người sử dụng không hợp lệ</source>
        <translation>The user name or the password is not valid</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Log On</translation>
    </message>
    <message>
        <source>Người sử dụng</source>
        <translation>User name</translation>
    </message>
    <message>
        <source>Mật khẩu</source>
        <translation>Password</translation>
    </message>
    <message>
        <source>Đồng ý</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Click here to Logon!</source>
        <translation>Click here to log on</translation>
    </message>
    <message>
        <source>Thoát</source>
        <translation>Exit</translation>
    </message>
    <message>
        <source>Hướng dẫn</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Hình đăng nhập</source>
        <translation>Logon picture</translation>
    </message>
</context>
<context>
    <name>zolt::FrmMenu</name>
    <message>
        <source>Thông báo</source>
        <translation>Notice</translation>
    </message>
    <message>
        <source>Users Management</source>
        <translation>User Management</translation>
    </message>
    <message>
        <source>Người sử dụng</source>
        <translation>Users</translation>
    </message>
    <message>
        <source>&amp;Thêm</source>
        <translation>&amp;Add</translation>
    </message>
    <message>
        <source>&amp;Sửa</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Xoá</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>T&amp;hoát</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Mở khoá</source>
        <translation>&amp;Release</translation>
    </message>
    <message>
        <source>Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên.</source>
        <translation>This user cannot be deleted, only renamed.</translation>
    </message>
    <message>
        <source>Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình</source>
        <translation>The last user of the program cannot be deleted</translation>
    </message>
    <message>
        <source>Bạn chắc chắn xoá người sử dụng này</source>
        <translation>Delete this user?</translation>
    </message>
</context>
<context>
    <name>zolt::LogonGuard</name>
    <message numerus="yes">
        <source>%n phút</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n giây</source>
        <translation>
            <numerusform>%n second</numerusform>
            <numerusform>%n seconds</numerusform>
        </translation>
    </message>
    <message>
        <source>Đã nhập sai quá số lần cho phép. Hãy chờ %1 nữa rồi đăng nhập lại.</source>
        <translation>Too many wrong attempts. Wait %1, then log on again.</translation>
    </message>
</context>
<context>
    <name>zolt::MdlMsg</name>
    <message>
        <source>Lỗi kết nối</source>
        <translation>Connection Error</translation>
    </message>
</context>
<context>
    <name>zolt::MessageBox</name>
    <message>
        <source>Đồ&amp;ng ý</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Bỏ qua</source>
        <translation>&amp;Cancel</translation>
    </message>
    <message>
        <source>Bỏ &amp;dở</source>
        <translation>&amp;Abort</translation>
    </message>
    <message>
        <source>&amp;Thử lại</source>
        <translation>&amp;Retry</translation>
    </message>
    <message>
        <source>&amp;Bác bỏ</source>
        <translation>&amp;Ignore</translation>
    </message>
    <message>
        <source>&amp;Có</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>&amp;Không</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Thông báo</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Câu hỏi</source>
        <translation>Question</translation>
    </message>
    <message>
        <source>Cảnh báo</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Lỗi</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>sửa lại</source>
        <translation>correct</translation>
    </message>
</context>
<context>
    <name>zolt::QuoteGuard</name>
    <message>
        <source>Tên và diễn giải không được chứa dấu nháy đơn (&apos;).</source>
        <translation>Names and descriptions cannot contain an apostrophe (&apos;).</translation>
    </message>
</context>
<context>
    <name>zolt::Schema</name>
    <message numerus="yes">
        <source>%1: %2 (%n dòng)</source>
        <translation>
            <numerusform>%1: %2 (%n row)</numerusform>
            <numerusform>%1: %2 (%n rows)</numerusform>
        </translation>
    </message>
    <message>
        <source>Các bảng của máy chủ đã khoá cần nâng cấp: người quản lý máy chủ chạy lại zolt-server lock.</source>
        <translation>The locked server&apos;s tables need an upgrade: the server&apos;s manager runs zolt-server lock again.</translation>
    </message>
</context>
<context>
    <name>zolt::UserRows</name>
    <message>
        <source>Đang phải chờ vì đăng nhập sai quá số lần cho phép</source>
        <translation>Waiting after too many wrong logon attempts</translation>
    </message>
    <message>
        <source>Tên</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Diễn giải</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>Mã số</source>
        <translation>Code</translation>
    </message>
</context>
<context>
    <name>zolt::WriteOption</name>
    <message>
        <source>Không thể lưu được khoá%1-%2. Lỗi là %3</source>
        <translation>Cannot save the setting %1-%2. The error is %3</translation>
    </message>
</context>
</TS>
