<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="vi">
<context>
    <name>MainWindow</name>
    <message>
        <source>Thêm, sửa và xem danh mục hàng hoá</source>
        <translation>Add, edit and view the goods catalogue</translation>
    </message>
    <message>
        <source>Danh sách khách hàng và công nợ của từng khách</source>
        <translation>Customers and what each one owes</translation>
    </message>
    <message>
        <source>Danh sách nhà cung cấp hàng</source>
        <translation>Suppliers of goods</translation>
    </message>
    <message>
        <source>Lập phiếu nhập hàng vào kho</source>
        <translation>Write a receipt of goods into the store</translation>
    </message>
    <message>
        <source>Lập phiếu xuất hàng khỏi kho</source>
        <translation>Write an issue of goods from the store</translation>
    </message>
    <message>
        <source>Lập hoá đơn bán hàng cho khách</source>
        <translation>Write a sales invoice for a customer</translation>
    </message>
    <message>
        <source>Số lượng tồn của từng mặt hàng</source>
        <translation>The stock of each item</translation>
    </message>
    <message>
        <source>Doanh thu bán hàng của từng ngày</source>
        <translation>The sales of each day</translation>
    </message>
    <message>
        <source>Thêm, sửa, xoá người sử dụng chương trình</source>
        <translation>Add, edit and delete the program&apos;s users</translation>
    </message>
    <message>
        <source>Nhóm người sử dụng và quyền của nhóm trên từng thực đơn</source>
        <translation>User groups and their rights on each menu</translation>
    </message>
    <message>
        <source>Đổi mật khẩu đăng nhập của bạn</source>
        <translation>Change your logon password</translation>
    </message>
    <message>
        <source>Danh mục hàng hoá</source>
        <translation>Goods Catalogue</translation>
    </message>
    <message>
        <source>Mã hàng</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Tên hàng</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Đơn vị</source>
        <translation>Unit</translation>
    </message>
    <message>
        <source>Giá bán</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>Ngày nhập</source>
        <translation>Received</translation>
    </message>
    <message>
        <source>Không lọc được danh mục: %1</source>
        <translation>The catalogue could not be filtered: %1</translation>
    </message>
    <message>
        <source>Người sử dụng: %1   —   %2 mặt hàng</source>
        <translation>User: %1   —   %2 items</translation>
    </message>
    <message>
        <source>Lọc: %1</source>
        <translation>Filter: %1</translation>
    </message>
    <message>
        <source>&amp;Tìm kiếm</source>
        <translation>&amp;Search</translation>
    </message>
    <message>
        <source>&amp;Tìm hàng hoá...</source>
        <translation>&amp;Find Goods...</translation>
    </message>
    <message>
        <source>Lọc danh mục hàng theo tối đa bốn điều kiện</source>
        <translation>Filter the goods by up to four conditions</translation>
    </message>
    <message>
        <source>&amp;Bỏ lọc</source>
        <translation>Show &amp;All</translation>
    </message>
    <message>
        <source>Hiện lại toàn bộ danh mục hàng</source>
        <translation>Show the whole catalogue again</translation>
    </message>
    <message>
        <source>Chức năng «%1» có trong phiên bản sau.</source>
        <translation>«%1» comes in a later version.</translation>
    </message>
    <message>
        <source>Đăng &amp;nhập lại</source>
        <translation>&amp;Log On Again</translation>
    </message>
    <message>
        <source>Đóng cửa sổ này và đăng nhập với tên khác</source>
        <translation>Close this window and log on under another name</translation>
    </message>
    <message>
        <source>&amp;Thoát</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>Thoát khỏi chương trình</source>
        <translation>Leave the program</translation>
    </message>
    <message>
        <source>&amp;Giao diện</source>
        <translation>&amp;Look</translation>
    </message>
    <message>
        <source>Tô &amp;cả dòng khi chọn</source>
        <translation>Select the &amp;Whole Row</translation>
    </message>
    <message>
        <source>Tô màu chọn trên cả dòng, hoặc chỉ sau tên mục</source>
        <translation>Highlight the whole row, or only behind the caption</translation>
    </message>
    <message>
        <source>Ô đánh dấu &amp;nổi</source>
        <translation>&amp;Sunken Check Boxes</translation>
    </message>
    <message>
        <source>Vẽ dấu chọn trong ô lõm ba chiều</source>
        <translation>Draw check marks in sunken three-dimensional boxes</translation>
    </message>
    <message>
        <source>&amp;Hình mờ nổi</source>
        <translation>&amp;Embossed Pictures</translation>
    </message>
    <message>
        <source>Hình của mục bị khoá vẽ nổi, hoặc xám</source>
        <translation>Draw a disabled item&apos;s picture embossed, or grey</translation>
    </message>
    <message>
        <source>Từ &amp;phải sang trái</source>
        <translation>&amp;Right to Left</translation>
    </message>
    <message>
        <source>Thực đơn viết từ phải sang trái</source>
        <translation>Menus written from right to left</translation>
    </message>
    <message>
        <source>Chữ cỡ &amp;%1</source>
        <translation>Font Size &amp;%1</translation>
    </message>
    <message>
        <source>Chữ của thực đơn cỡ %1 điểm</source>
        <translation>Menu font of %1 points</translation>
    </message>
    <message>
        <source>Bạn có muốn thoát khỏi chương trình không?</source>
        <translation>Do you want to leave the program?</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Bán hàng ZOLT</source>
        <translation>ZOLT Sales</translation>
    </message>
    <message>
        <source>Không mở được dữ liệu %1:
%2</source>
        <translation>Cannot open the database %1:
%2</translation>
    </message>
</context>
</TS>
